import assert from "node:assert/strict";
import { beforeEach, mock, test } from "node:test";

import { event, newPort, turns, useEmptyHtml, useMessenger } from "./fake.mjs";

const ROOT = "/org/kest/Mail1";

useEmptyHtml();
mock.timers.enable({ apis: ["setTimeout"] });

let ports = [];
let opened = [];

const thunderbird = useMessenger({
  runtime: {
    onStartup: event(), onInstalled: event(), connectNative: () => newPort(ports),
    getBrowserInfo: async () => ({ name: "Thunderbird", version: "153" }), getManifest: () => ({ version: "1" }),
  },
  windows: { getLastFocused: async () => null, update: async () => {} },
  compose: {
    beginNew: async fields => {
      opened.push(fields);
      return { id: opened.length, windowId: opened.length };
    },
    getComposeDetails: async () => ({ isPlainText: true, plainTextBody: "", body: "" }),
    setComposeDetails: async () => {},
    listAttachments: async () => opened.at(-1).attachments.map(({ name }, id) => ({ id, name })),
  },
});
await import("../background.js");
await turns();

function call(serial, member, values, name = "Application", path = ROOT) {
  return { call: serial, path, interface: name, kind: "call", member, arguments: values };
}

function newMessage(serial, file) {
  return call(serial, "NewMessage", { subject: "", content: "", account: "", index: 0, attachments: [["a.txt", { file }]] });
}

function reply(serial, file) {
  return call(serial, "Reply", { original: `${ROOT}/message/1`, content: "", account: "", replyToAll: false, send: false,
    deleteOriginal: false, index: 0, attachments: [["a.txt", { file }]] });
}

function piece(file, text, last) {
  return { chunk: file, data: Buffer.from(text).toString("base64"), last };
}

function say(...messages) {
  messages.forEach(message => ports.at(-1).onMessage.fire(message));
  return turns();
}

/** Thunderbird takes its time over one of its functions, until what this returns is called with the result. */
function held(part, name) {
  const asItIs = thunderbird[part][name];
  let resolve;
  thunderbird[part][name] = () => new Promise(resolved => { resolve = resolved; });
  return async result => {
    thunderbird[part][name] = asItIs;
    resolve(result);
    await turns();
  };
}

function startNextHost() {
  ports.at(-1).onDisconnect.fire();
  mock.timers.tick(8000);
}

async function nextHost() {
  startNextHost();
  await say({ hello: {} });
}

/** What the present host was told of its calls. */
function answers() {
  return ports.at(-1).sent.filter(sent => sent.answer !== undefined);
}

beforeEach(async () => {
  await nextHost();
  opened = [];
});

test("a call of a host that has ended is not answered to the next one, which counts from the same number", async () => {
  const release = held("accounts", "list");
  await say(call(1, "Accounts", {}));
  await nextHost();
  await release([]);
  assert.deepEqual(answers(), []);
});

test("a call of a host that has ended drops no file of the next one", async () => {
  const release = held("accounts", "list");
  await say(piece(1, "of the first host", true), newMessage(1, 1));
  await nextHost();
  await say(piece(1, "whole ", false));
  await release([]);
  await say(piece(1, "file", true), newMessage(1, 1));
  assert.equal(await opened.at(-1).attachments[0].file.text(), "whole file");
});

test("a call of a host that has ended takes no file of the next one", async () => {
  const release = held("messages", "get");
  await say(piece(1, "of the first host", true), reply(1, 1));
  await nextHost();
  await say(piece(1, "of the next", true));
  await release({ id: 1 });
  await say(newMessage(1, 1));
  assert.deepEqual(answers().map(sent => sent.error), [undefined]);
  assert.equal(await opened.at(-1).attachments[0].file.text(), "of the next");
});

test("a file that was dropped in the middle never gets whole", async () => {
  await say(piece(3, "first ", false), { drop: 3 }, piece(3, "second", true), newMessage(1, 3));
  assert.match(answers()[0].error.message, /did not arrive whole/);
  assert.equal(opened.length, 0);
});

test("who has the focus is not told to a host that has not said hello yet", async () => {
  const release = held("windows", "getLastFocused");
  await nextHost();
  startNextHost();
  await release(null);
  assert.deepEqual(ports.at(-1).sent.filter(sent => sent.focused !== undefined), []);
});
