import assert from "node:assert/strict";
import { mock, test } from "node:test";

import { event, turns, useMessenger } from "./fake.mjs";
import { make, find, path } from "../outgoing.js";
import { send } from "../sending.js";

/** A message in a compose window that is open until `window.open` is false; `sendMessage` as given. */
function shown(sendMessage, details = { to: ["ben@example.test"] }) {
  const window = { open: true, raised: 0, onRemoved: event() };
  useMessenger({
    compose: { getComposeDetails: async () => details, sendMessage },
    tabs: {
      onRemoved: window.onRemoved,
      get: async id => (window.open ? { id } : Promise.reject(new Error("no tab"))),
    },
    windows: { update: async () => { window.raised += 1; } },
  });
  return { window, message: make({ tabId: 5, windowId: 6 }) };
}

function useFakeTime() {
  mock.timers.reset();
  mock.timers.enable({ apis: ["setTimeout", "Date"] });
}

async function pass(milliseconds, step = 50) {
  for (let time = 0; time < milliseconds; time += step) {
    mock.timers.tick(step);
    await turns(3);
  }
}

test("a message with its Message-ID whose window closes is sent, and gone", async () => {
  const { window, message } = shown(async () => {
    window.open = false;
    return { headerMessageId: "a@b" };
  });
  await send(message);
  assert.throws(() => find(path(message)), { name: "NoSuchObject" });
  assert.equal(window.onRemoved.count(), 0);
});

test("a resolved promise without a Message-ID is no sent message while its window is open", async () => {
  useFakeTime();
  const { message } = shown(async () => ({ headerMessageId: null }));
  const sending = assert.rejects(send(message), { name: "Failed" });
  await pass(2000);
  await sending;
  assert.equal(find(path(message)), message);
});

test("a window that does not offer Send at once is asked again", async () => {
  useFakeTime();
  let tries = 0;
  const { window, message } = shown(async () => {
    if (++tries < 3) {
      throw new Error("Message compose window not ready for the requested command");
    }
    window.open = false;
    return { headerMessageId: "a@b" };
  });
  const sending = send(message);
  await pass(500);
  await sending;
  assert.equal(tries, 3);
});

test("a window that never offers Send fails the call in words", async () => {
  useFakeTime();
  const { message } = shown(async () => {
    throw new Error("Message compose window not ready for the requested command");
  });
  const sending = assert.rejects(send(message), /may be offline/);
  await pass(3500);
  await sending;
});

test("while Thunderbird asks something its window comes to the front after five seconds", async () => {
  useFakeTime();
  const { window, message } = shown(() => new Promise(() => {}));
  send(message).catch(() => {});
  await pass(4900);
  assert.equal(window.raised, 0);
  await pass(200);
  assert.equal(window.raised, 1);
});

test("a window that a person closes instead of sending fails the call", async () => {
  useFakeTime();
  const { window, message } = shown(() => new Promise(() => {}));
  const sending = assert.rejects(send(message), /closed before it was sent/);
  await turns();
  window.onRemoved.fire(5);
  await pass(4000);
  await sending;
});

test("nothing is sent to nobody", async () => {
  const { message } = shown(() => assert.fail("sent"), { to: [], cc: [], bcc: [] });
  await assert.rejects(send(message), /no recipient/);
});
