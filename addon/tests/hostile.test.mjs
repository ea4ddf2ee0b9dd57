/**
 * Messages that no host of ours sends: thousands of broken variations of real ones, from a seed that is printed when
 * something is found. A random test, not a fuzzer that learns from coverage. KEST_FUZZ_SEED and KEST_FUZZ_ROUNDS say
 * which and how many.
 */

import assert from "node:assert/strict";
import { mock, test } from "node:test";

import { event, newPort, turns, useMessenger } from "./fake.mjs";

const SEED = Number(process.env.KEST_FUZZ_SEED ?? 20250301);
const ROUNDS = Number(process.env.KEST_FUZZ_ROUNDS ?? 5000);

const MESSAGES = [
  { hello: { protocol: 1, version: "0.1.0" } },
  { chunk: 1, data: "aGVsbG8=", last: true },
  { drop: 1 },
  { piece: "eyJjYWxsIjoxfQ==", last: true },
  call("Application", "call", "Accounts", {}),
  call("Application", "call", "Selection", {}),
  call("Application", "call", "MakeOutgoingMessage", { subject: "s", content: "c" }),
  call("Application", "call", "NewMessage",
    { subject: "s", content: "c", account: "", index: 1, attachments: [["a.m4a", { file: 1 }]] }),
  call("Application", "call", "Reply",
    { original: "/org/kest/Mail1/message/1", content: "c", account: "", replyToAll: false, send: true,
      deleteOriginal: true, index: 0, attachments: [] }),
  call("Message", "call", "Delete", {}, "/org/kest/Mail1/message/1"),
  call("OutgoingMessage", "get", "Content", undefined, "/org/kest/Mail1/outgoing/1"),
  call("OutgoingMessage", "set", "Visible", true, "/org/kest/Mail1/outgoing/1"),
  call("OutgoingMessage", "call", "Send", {}, "/org/kest/Mail1/outgoing/1"),
  call("OutgoingMessage", "call", "InsertAttachment", { fileName: "a.m4a", file: { file: 1 }, index: 0 },
    "/org/kest/Mail1/outgoing/1"),
];

const ODD = [
  null, undefined, true, 0, -1, 1e308, NaN, "", "x", "/", "../..", "__proto__", "constructor", "call", "get", "toString",
  "\u0000", "\ud800", "a".repeat(5000), [], {}, [[]], [null], [["a", null]], [5], { file: null }, { file: 1 },
  { length: 1e9 }, "/org/kest/Mail1/message/99999999999999999999", "/org/kest/Mail1/outgoing/__proto__",
];

function call(name, kind, member, values, path = "/org/kest/Mail1") {
  return { call: 1, path, interface: name, kind, member, arguments: values };
}

/** Mulberry32: small, and the same everywhere. */
function randomFrom(seed) {
  return limit => {
    seed = (seed + 0x6d2b79f5) | 0;
    let value = Math.imul(seed ^ (seed >>> 15), 1 | seed);
    value = (value + Math.imul(value ^ (value >>> 7), 61 | value)) ^ value;
    return ((value ^ (value >>> 14)) >>> 0) % limit;
  };
}

/** The value with something in it replaced, taken away or added. */
function broken(whole, random) {
  if (whole === null || typeof whole !== "object" || random(4) === 0) {
    return ODD[random(ODD.length)];
  }
  const copy = Array.isArray(whole) ? [...whole] : { ...whole };
  const keys = Object.keys(copy);
  const key = keys.length && random(6) ? keys[random(keys.length)] : String(ODD[random(ODD.length)]);
  if (random(8) === 0) {
    delete copy[key];
  } else {
    const value = Object.hasOwn(copy, key) ? copy[key] : null;
    Object.defineProperty(copy, key, { value: broken(value, random), configurable: true, enumerable: true, writable: true });
  }
  return copy;
}

async function startAddon() {
  const port = newPort([]);
  useMessenger({
    runtime: {
      onStartup: event(), onInstalled: event(), connectNative: () => port,
      getBrowserInfo: async () => ({ name: "Thunderbird", version: "153" }), getManifest: () => ({ version: "1" }),
    },
    windows: { getLastFocused: async () => null, getAll: async () => [] },
  });
  await import("../background.js");
  await turns();
  return port;
}

const port = await startAddon();

test("whatever the host sends, every call is answered once and nothing is thrown", async () => {
  mock.method(console, "warn", () => {});
  mock.method(console, "error", () => {});
  const random = randomFrom(SEED);
  for (let round = 0; round < ROUNDS; round++) {
    let message = MESSAGES[random(MESSAGES.length)];
    for (let change = random(3); change >= 0; change--) {
      message = broken(message, random);
    }
    message = JSON.parse(JSON.stringify(message) ?? "null"); // as it comes through the browser
    const isCall = message?.call === 1 && !message.hello && typeof message.piece !== "string"
      && message.chunk === undefined && message.drop === undefined;
    if (isCall) {
      message.call = `round ${round}`;
    }
    const text = `seed ${SEED}, ${JSON.stringify(message)}, round ${round}`;
    assert.doesNotThrow(() => port.onMessage.fire(message), text);
    const answers = () => port.sent.filter(sent => sent.answer === `round ${round}`).length;
    for (let wait = 0; isCall && !answers() && wait < 50; wait++) {
      await turns(1);
    }
    assert.equal(answers(), isCall ? 1 : 0, text);
    port.sent.length = 0;
  }
  assert.equal({}.file, undefined, "nothing has got into the prototype of all objects");
});

test("what is asked for at great length is refused in few words", async () => {
  const long = "/long".repeat(1e6);
  for (const message of [call("Message", "get", "Subject", undefined, long), call("Message", "get", long),
    call("OutgoingMessage", "get", "Subject", undefined, long), call(long, "get", "Subject"),
    call("Application", "call", "Reply", { original: long, attachments: [] }),
    call("Application", "call", "NewMessage", { content: "", account: "", attachments: [[long, { file: 1 }]] })]) {
    port.sent.length = 0;
    port.onMessage.fire(message);
    await turns();
    const [{ error }] = port.sent;
    assert.ok(error.name && error.message.length <= 500);
  }
});

test("the host's words name nothing but the contract's members", async () => {
  const { carryOut } = await import("../vocabulary.js");
  for (const [name, kind, member] of [["constructor", "call", "call"], ["__proto__", "toString", "call"],
    ["Application", "constructor", "call"], ["Application", "call", "constructor"], ["Application", "find", "call"]]) {
    await assert.rejects(carryOut({ interface: name, kind, member, path: "/", arguments: {} }), { name: "Unsupported" });
  }
});
