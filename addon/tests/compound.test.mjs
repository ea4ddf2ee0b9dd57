import assert from "node:assert/strict";
import { test } from "node:test";

import { Files } from "../attachments.js";
import { replyInOne } from "../compound.js";
import { useEmptyHtml, useMessenger } from "./fake.mjs";

useEmptyHtml();

const IDENTITY = { id: "id1", name: "Anna", email: "anna@example.test" };

/** Answers a message that Thunderbird cannot delete; `send` as the call says. */
function answered(send, sendMessage) {
  let open = true;
  useMessenger({
    accounts: { list: async () => [{ id: "a", name: "A", type: "imap", identities: [IDENTITY] }] },
    messages: {
      get: async id => ({ id, recipients: [], ccList: [] }),
      getHeaders: async () => ({}),
      delete: async () => { throw new Error("the folder is locked"); },
    },
    compose: {
      beginReply: async () => ({ id: 1, windowId: 2 }),
      getComposeDetails: async () => ({ isPlainText: true, plainTextBody: "", body: "", to: ["ben@example.test"] }),
      setComposeDetails: async () => {},
      sendMessage: async () => {
        open = false;
        return sendMessage();
      },
    },
    tabs: { get: async id => (open ? { id } : Promise.reject(new Error("no tab"))) },
    windows: { update: async () => {} },
  });
  return replyInOne({ original: "/org/kest/Mail1/message/1", content: "Yes", account: "", replyToAll: false, send,
    deleteOriginal: true, index: 0, attachments: [] }, new Files());
}

test("a reply that was sent is not told as one that failed where its original stays", async () => {
  await assert.rejects(answered(true, () => ({ headerMessageId: "a@b" })), {
    name: "Failed",
    message: "The reply was sent, but the original could not be deleted: the folder is locked",
  });
});

test("a reply that is shown is told of where its original stays", async () => {
  await assert.rejects(answered(false), {
    name: "Failed",
    message: "The reply is there, but the original could not be deleted: the folder is locked",
  });
});

test("a reply that was not sent fails with the reason for that alone", async () => {
  await assert.rejects(answered(true, () => { throw new Error("no server"); }), { message: "no server" });
});
