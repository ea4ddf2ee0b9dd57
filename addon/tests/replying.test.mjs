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
let opened;
let closed;

beforeEach(() => {
  details = { isPlainText: true, plainTextBody: "> Lunch?", body: "", subject: "Re: Lunch", to: ["ben@example.test"],
    cc: ["anna@example.test", "carl@example.test"], bcc: [] };
  opened = 0;
  closed = [];
  thunderbird = useMessenger({
    accounts: { list: async () => [{ id: "a", name: "A", type: "imap", identities: [IDENTITY] }] },
    messages: { getHeaders: async () => ({}) },
    compose: {
      beginReply: async () => {
        opened += 1;
        return { id: 5, windowId: 6 };
      },
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

const REFUSED = {
  name: "Failed",
  message: "This reply must be encrypted, and “Direct” cannot do that. Choose “Script” as the mail back end in Preferences.",
};

function writtenAs(contentType) {
  thunderbird.messages.getHeaders = async () => ({ "content-type": [contentType] });
}

test("a reply that Thunderbird encrypts is not read out, and its window goes", async () => {
  for (const name of ["OpenPGP", "S/MIME"]) {
    closed = [];
    details = { ...details, isModified: true, selectedEncryptionTechnology: { name, encryptBody: true, signMessage: false } };
    await failsWithoutTrace({ openingWindow: false, replyToAll: true }, REFUSED);
  }
});

test("of a message that is encrypted no reply is opened to be read out", async () => {
  for (const contentType of ['multipart/encrypted; protocol="application/pgp-encrypted"; boundary=b', "Multipart/Encrypted",
    'application/pkcs7-mime; name="smime.p7m"; smime-type=enveloped-data', "application/x-pkcs7-mime; name=smime.p7m",
    'application/pkcs7-mime; smime-type="authEnveloped-data"']) {
    writtenAs(contentType);
    await assert.rejects(reply(ORIGINAL, { openingWindow: false, replyToAll: false }), REFUSED, contentType);
  }
  assert.equal(opened, 0);
});

test("a reply that is at most signed is read out", async () => {
  details.selectedEncryptionTechnology = { name: "OpenPGP", encryptBody: false, encryptSubject: false, signMessage: true };
  for (const contentType of ["text/plain", 'multipart/signed; protocol="application/pgp-signature"',
    "application/pkcs7-mime; smime-type=signed-data; name=smime.p7m", "multipart/encrypted-not"]) {
    writtenAs(contentType);
    assert.ok(find(await reply(ORIGINAL, { openingWindow: false, replyToAll: false })), contentType);
  }
});

test("Thunderbird's own window answers an encrypted message", async () => {
  writtenAs("multipart/encrypted");
  details.selectedEncryptionTechnology = { name: "OpenPGP", encryptBody: true, encryptSubject: true, signMessage: true };
  assert.equal(find(await reply(ORIGINAL, { openingWindow: true, replyToAll: false })).tabId, 5);
  assert.deepEqual(closed, []);
});
