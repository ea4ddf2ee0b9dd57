import assert from "node:assert/strict";
import { test } from "node:test";

import { open } from "../composing.js";
import { make } from "../outgoing.js";
import { useEmptyHtml, useMessenger } from "./fake.mjs";

useEmptyHtml();

/** Opens a message in a Thunderbird that then lists those attachments; returns what the window was opened with and told. */
async function opened(message, listed) {
  const told = [];
  let fields;
  useMessenger({ compose: {
    beginNew: async details => {
      fields = details;
      return { id: 1, windowId: 2 };
    },
    getComposeDetails: async () => ({ isPlainText: true, plainTextBody: "", body: "" }),
    setComposeDetails: async (_tab, details) => told.push(details),
    listAttachments: async () => listed,
  } });
  await open(message);
  return { fields, told };
}

test("a window is opened with its attachments, and each is known by the name that Thunderbird gave it", async () => {
  const files = [new File(["1"], "attachment.m4a"), new File(["2"], "attachment.m4a")];
  const message = make({ attachments: files.map(file => ({ name: "a.m4a", file, offset: 0 })) });
  const { fields, told } = await opened(message, [{ id: 7, name: "another add-on's.vcf" }, { id: 8, name: "a.m4a" },
    { id: 9, name: "a.m4a" }]);
  assert.deepEqual(fields.attachments, files.map(file => ({ name: "a.m4a", file })));
  assert.deepEqual(message.attachments.map(({ id, file }) => [id, file]), [[8, undefined], [9, undefined]]);
  assert.deepEqual(told.at(-1), { isModified: true });
});

test("an attachment under another name is the first that is left", async () => {
  const message = make({ attachments: [{ name: "a\u0007.m4a", file: new File([], "attachment.m4a"), offset: 0 }] });
  await opened(message, [{ id: 5, name: "a .m4a" }]);
  assert.equal(message.attachments[0].id, 5);
});

test("an attachment that the window does not have is told of", async () => {
  const message = make({ attachments: [{ name: "a.m4a", file: new File([], "attachment.m4a"), offset: 0 }] });
  await assert.rejects(opened(message, []), { name: "Failed", message: /a\.m4a/ });
});

test("of several attachments the one that is missing is named", async () => {
  const message = make({ attachments: [{ name: "a.m4a", file: new File([], "attachment.m4a"), offset: 0 },
    { name: "b.txt", file: new File([], "attachment.txt"), offset: 0 }] });
  await assert.rejects(opened(message, [{ id: 7, name: "b.txt" }]), { name: "Failed", message: /a\.m4a/ });
});

test("a window without attachments is opened as Thunderbird leaves it", async () => {
  const { fields, told } = await opened(make({ content: "Text" }), []);
  assert.deepEqual(fields.attachments, []);
  assert.deepEqual(told, [{ plainTextBody: "Text" }]);
});
