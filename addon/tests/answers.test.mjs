import assert from "node:assert/strict";
import { test } from "node:test";

import { failure, success } from "../answers.js";
import { MailError } from "../errors.js";
import { idFromPath } from "../paths.js";

const MOST_BYTES = 4 * 1024 * 1024;
const MOST_VALUES = 128 * 1024;

/** What the host counts: each value but the first follows a comma or an opening bracket outside a text. */
function partsOf(json) {
  return json.replace(/"(?:[^"\\]|\\.)*"/g, "").match(/[,[{]/g).length;
}

function assertPasses(answer) {
  const json = JSON.stringify(answer);
  assert.ok(Buffer.byteLength(json) <= MOST_BYTES, "short enough");
  assert.ok(partsOf(json) <= MOST_VALUES, "not too many values");
}

test("an answer goes as it is", () => {
  assert.deepEqual(success(3, ["/a", { b: 1 }]), { answer: 3, result: ["/a", { b: 1 }] });
  assert.deepEqual(success(4, undefined), { answer: 4, result: null });
});

test("an answer that the host would not take fails in words", () => {
  const paths = length => Array.from({ length }, (_, at) => `/org/kest/Mail1/message/${at}`);
  for (const result of ["x".repeat(5e6), "ä".repeat(2.2e6), "\u0001".repeat(8e5), "\ud800".repeat(8e5), paths(131000),
    Array(131072).fill(0), Array(70000).fill([]), Array(50000).fill(["", ""]), Object.fromEntries(paths(131072).entries())]) {
    const answer = success(5, result);
    assert.equal(answer.answer, 5);
    assert.deepEqual(answer.error, { name: "Failed", message: "The answer is too long to be passed on." });
    assert.ok(!("result" in answer));
    assertPasses(answer);
  }
});

test("an answer that the host would just take goes", () => {
  for (const result of ["x".repeat(4.1e6), "ä".repeat(2e6), "\u0001".repeat(6.8e5), Array(129000).fill(0),
    Array(64000).fill([]), Array(40000).fill(["", ""])]) {
    const answer = success(6, result);
    assert.equal(answer.result, result);
    assertPasses(answer);
  }
});

test("an error's words are short, and no character is cut in two", () => {
  for (const words of ["x".repeat(5e6), "🎤".repeat(2e6), ` ${"🎤".repeat(2e6)}`]) {
    for (const error of [new MailError("InvalidArgument", words), new Error(words), words]) {
      const { message } = failure(7, error).error;
      assert.ok(message.length <= 500 && message.endsWith("…"));
      assert.ok(message.isWellFormed());
    }
  }
  assert.deepEqual(failure(8, new MailError("Failed", "Short.")), { answer: 8, error: { name: "Failed", message: "Short." } });
});

test("a path is quoted only where it is short", () => {
  assert.throws(() => idFromPath("/org/kest/Mail1/message/x", "message"), { name: "NoSuchObject", message: /“.*\/x”/ });
  for (const path of [`/${"a".repeat(5e6)}`, `/org/kest/Mail1/message/${"9".repeat(100)}`]) {
    assert.throws(() => idFromPath(path, "message"), { name: "NoSuchObject", message: "There is no message of that path." });
  }
});
