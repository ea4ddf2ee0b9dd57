import assert from "node:assert/strict";
import { beforeEach, test } from "node:test";

import { find, make, path } from "../outgoing.js";
import { reply } from "../replying.js";
import { useEmptyHtml, useMessenger } from "./fake.mjs";

useEmptyHtml();

const IDENTITY = { id: "id1", name: "Anna", email: "anna@example.test" };
const ORIGINAL = { id: 1, recipients: [], ccList: [] };

let thunderbird;
let details;
let closed;

beforeEach(() => {
  details = { isPlainText: true, plainTextBody: "> Lunch?", body: "", subject: "Re: Lunch", to: ["ben@example.test"],
    cc: ["anna@example.test", "carl@example.test"], bcc: [] };
  closed = [];
  thunderbird = useMessenger({
    accounts: { list: async () => [{ id: "a", name: "A", type: "imap", identities: [IDENTITY] }] },
    messages: { getHeaders: async () => ({}) },
    compose: {
      beginReply: async () => ({ id: 5, windowId: 6 }),
      getComposeDetails: async () => details,
      setComposeDetails: async (_tab, changes) => { details = { ...details, ...changes }; },
    },
    tabs: { remove: async id => closed.push({ id, asks: details.isModified !== false }) },
  });
});

/** What the next outgoing message is called; all before it are known then. */
function nextPath() {
  return path(make({}));
}

function assertGone(before, after) {
  const number = text => Number(text.split("/").at(-1));
  for (let id = number(before) + 1; id < number(after); id++) {
    assert.throws(() => find(`/org/kest/Mail1/outgoing/${id}`), { name: "NoSuchObject" });
  }
}

/** The reply fails with those words, and neither its window nor its message is left. */
async function failsWithoutTrace(options, words) {
  const before = nextPath();
  await assert.rejects(reply(ORIGINAL, options), words);
  assert.deepEqual(closed, [{ id: 5, asks: false }]);
  assertGone(before, nextPath());
}

test("a hidden reply keeps what its window held, and the window goes", async () => {
  const hidden = find(await reply(ORIGINAL, { openingWindow: false, replyToAll: true }));
  assert.deepEqual([hidden.subject, hidden.content, hidden.tabId], ["Re: Lunch", "> Lunch?", null]);
  assert.deepEqual(hidden.cc, [{ name: "", address: "carl@example.test" }]);
  assert.deepEqual(closed, [{ id: 5, asks: false }]);
});

test("a reply to all that still names oneself leaves no window behind", async () => {
  const change = thunderbird.compose.setComposeDetails;
  thunderbird.compose.setComposeDetails = async (tab, changes) =>
    (changes.cc ? Promise.reject(new Error("no such recipient")) : change(tab, changes));
  await failsWithoutTrace({ openingWindow: true, replyToAll: true }, /no such recipient/);
});

test("a reply that cannot be read into hiding leaves no window behind", async () => {
  thunderbird.compose.getComposeDetails = async () => { throw new Error("no editor"); };
  await failsWithoutTrace({ openingWindow: false, replyToAll: false }, /no editor/);
});
