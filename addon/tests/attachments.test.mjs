import assert from "node:assert/strict";
import { beforeEach, test } from "node:test";

import "./fake.mjs";
import { attachment, Files, insertAt, plainFile } from "../attachments.js";

let files;

beforeEach(() => {
  files = new Files();
});

function arrive(id, text, last = true) {
  return files.takeChunk({ chunk: id, data: Buffer.from(text).toString("base64"), last });
}

test("pieces make the whole file, in their order", async () => {
  arrive(1, "first ", false);
  arrive(1, "second", true);
  assert.equal(await attachment("a.txt", { file: 1 }, files).file.text(), "first second");
});

test("a file that has not arrived whole is no attachment, and neither is one used before", () => {
  arrive(2, "half", false);
  assert.throws(() => attachment("a.txt", { file: 2 }, files), { name: "Failed" });
  arrive(3, "whole");
  attachment("a.txt", { file: 3 }, files);
  assert.throws(() => attachment("a.txt", { file: 3 }, files), { name: "Failed" });
});

test("a dropped file is gone", () => {
  arrive(4, "whole");
  files.drop(4);
  assert.throws(() => attachment("a.txt", { file: 4 }, files), { name: "Failed" });
});

test("a file never gets whole by what follows after its end", () => {
  arrive(4, "dropped in the ", false);
  files.drop(4);
  arrive(5, "asked for too ", false);
  assert.throws(() => attachment("a.txt", { file: 5 }, files), { name: "Failed" });
  for (const id of [4, 5]) {
    assert.equal(arrive(id, "middle or early"), false);
    assert.throws(() => attachment("a.txt", { file: id }, files), { name: "Failed" });
  }
});

test("a piece that is no base64 is not taken, and its file is none, whatever follows", () => {
  for (const [id, data] of ["x", "/", "a===", "aGVsbG8=aGVs", "aGVsbG8==", "aGVs====", "aGVs\u0000", "aGVs-_"].entries()) {
    arrive(id, "first", false);
    assert.equal(files.takeChunk({ chunk: id, data, last: false }), false, data);
    assert.equal(files.takeChunk({ chunk: id, data: "aGVsbG8=", last: true }), false, data);
    assert.throws(() => attachment("a.txt", { file: id }, files), { name: "Failed" }, data);
  }
});

test("another host's file of the same number is another one", async () => {
  arrive(7, "of one host", false);
  files.drop(7);
  const first = files;
  files = new Files();
  arrive(7, "of another");
  first.drop(7);
  assert.equal(await attachment("a.txt", { file: 7 }, files).file.text(), "of another");
});

test("the temporary file has a plain short name and the right type", () => {
  const file = plainFile(["x"], "Grüße; 🎤 rm -rf.M4A");
  assert.deepEqual([file.name, file.type], ["attachment.M4A", "audio/mp4"]);
  assert.equal(plainFile(["x"], "no extension").name, "attachment");
  assert.equal(plainFile(["x"], "x./../y").name, "attachment");
});

test("names that no file can have are refused", () => {
  arrive(5, "x");
  for (const name of ["", ".", "..", "a/b", "a\0b", "ü".repeat(128)]) {
    assert.throws(() => attachment(name, { file: 5 }, files), { name: "InvalidArgument" });
  }
});

function names(list) {
  return list.map(entry => entry.name).join(" ");
}

test("attachments at one index stand in reverse order", () => {
  const list = [];
  for (const name of ["one", "two", "three"]) {
    insertAt(list, { name }, 4, 10);
  }
  assert.equal(names(list), "three two one");
});

test("an index beyond the end means the end, also for the next one", () => {
  const list = [];
  for (const name of ["one", "two", "three"]) {
    insertAt(list, { name }, Number.MAX_SAFE_INTEGER, 10);
  }
  assert.equal(names(list), "one two three");
});

test("an attachment takes one place in the content", () => {
  const list = [];
  insertAt(list, { name: "one" }, 4, 10);
  insertAt(list, { name: "after" }, 5, 10);
  insertAt(list, { name: "before" }, 3, 10);
  assert.equal(names(list), "before one after");
});
