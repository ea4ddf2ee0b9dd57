import assert from "node:assert/strict";
import { test } from "node:test";

import { useMessenger } from "./fake.mjs";
import { selection } from "../selection.js";

function mails(from, count) {
  return Array.from({ length: count }, (_unused, index) => ({ id: from + index }));
}

/** A main window whose active tab is `tab`, with 250 messages selected in pages of 100. */
function useTab(tab) {
  const pages = { two: { id: "three", messages: mails(101, 100) }, three: { id: null, messages: mails(201, 50) } };
  useMessenger({
    windows: { getAll: async () => [{ id: 1, type: "normal", focused: true }] },
    tabs: { query: async () => (tab ? [tab] : []) },
    mailTabs: { getSelectedMessages: async () => ({ id: "two", messages: mails(1, 100) }) },
    messageDisplay: { getDisplayedMessages: async () => ({ id: null, messages: mails(7, 1) }) },
    messages: { continueList: async id => pages[id] },
  });
}

test("all pages are read, in order", async () => {
  useTab({ id: 3, type: "mail" });
  const paths = await selection();
  assert.equal(paths.length, 250);
  assert.equal(paths[0], "/org/kest/Mail1/message/1");
  assert.equal(paths[249], "/org/kest/Mail1/message/250");
});

test("a message in a tab of its own is the selection", async () => {
  useTab({ id: 3, type: "messageDisplay" });
  assert.deepEqual(await selection(), ["/org/kest/Mail1/message/7"]);
});

test("in a calendar nothing is selected", async () => {
  useTab({ id: 3, type: "calendar" });
  assert.deepEqual(await selection(), []);
});

test("without a window nothing is selected", async () => {
  useMessenger({ windows: { getAll: async () => [] } });
  assert.deepEqual(await selection(), []);
});
