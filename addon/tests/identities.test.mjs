import assert from "node:assert/strict";
import { test } from "node:test";

import { useMessenger } from "./fake.mjs";
import { formatMailbox, withoutOwn } from "../addresses.js";
import { defaultIdentity, identityForAnswer, identityOfSender, listAccounts } from "../identities.js";

const HOME = { id: "a1", name: "Home", type: "imap", identities: [
  { id: "i1", name: "Anna", email: "anna@home.test" }, { id: "i2", name: "Anna", email: "lark@home.test" }] };
const WORK = { id: "a2", name: "Work", type: "imap", identities: [
  { id: "i3", name: "A. Lark", email: "al@work.test" }] };
const LOCAL = { id: "a3", name: "Local Folders", type: "none", identities: [] };
const NEWS = { id: "a4", name: "News", type: "nntp", identities: [{ id: "i4", name: "A", email: "a@news.test" }] };

function useAccounts(headers = {}) {
  useMessenger({
    accounts: { list: async () => [HOME, WORK, LOCAL, NEWS], getDefault: async () => WORK },
    messages: { getHeaders: async () => headers },
  });
}

function mail(to, { cc = [], account = "a1" } = {}) {
  return { id: 1, recipients: to, ccList: cc, folder: { accountId: account } };
}

test("accounts that cannot send mail are left out", async () => {
  useAccounts();
  assert.deepEqual((await listAccounts()).map(([id]) => id), ["a1", "a2"]);
});

test("the default account's first identity is the default", async () => {
  useAccounts();
  assert.equal((await defaultIdentity()).id, "i3");
});

test("an answer comes from the identity that the message was addressed to", async () => {
  useAccounts();
  assert.equal((await identityForAnswer(mail(["Lark <LARK@home.test>"]), null)).id, "i2");
  assert.equal((await identityForAnswer(mail(["x@y.test"], { cc: ["lark@home.test"] }), null)).id, "i2");
});

test("the account that holds the message goes before others", async () => {
  useAccounts();
  assert.equal((await identityForAnswer(mail(["al@work.test", "lark@home.test"]), null)).id, "i2");
  assert.equal((await identityForAnswer(mail(["al@work.test"]), null)).id, "i3");
});

test("a mail through a list is answered by whom it was delivered to", async () => {
  useAccounts({ "delivered-to": ["lark@home.test"] });
  assert.equal((await identityForAnswer(mail(["list@lists.test"]), null)).id, "i2");
});

test("a named account answers by its own identity, addressed or not", async () => {
  useAccounts();
  assert.equal((await identityForAnswer(mail(["lark@home.test"]), WORK)).id, "i3");
});

test("addressed to nobody known, the account's default answers; without an account, the default", async () => {
  useAccounts();
  assert.equal((await identityForAnswer(mail(["x@y.test"]), null)).id, "i1");
  assert.equal((await identityForAnswer(mail(["x@y.test"], { account: "a3" }), null)).id, "i3");
});

test("a sender is found by its text, or by its address", async () => {
  useAccounts();
  assert.equal((await identityOfSender("Anna <lark@home.test>")).id, "i2");
  assert.equal((await identityOfSender("AL@WORK.TEST")).id, "i3");
  await assert.rejects(identityOfSender("Anna <mallory@home.test>"), { name: "InvalidArgument" });
});

test("names that need it are quoted in a header", () => {
  assert.equal(formatMailbox("", "a@b.test"), "a@b.test");
  assert.equal(formatMailbox("Dörte Ö", "a@b.test"), "Dörte Ö <a@b.test>");
  assert.equal(formatMailbox('Lark, "Anna" \\', "a@b.test"), '"Lark, \\"Anna\\" \\\\" <a@b.test>');
});

test("one's own addresses are told by address alone", () => {
  const boxes = [{ name: "Me", address: "ANNA@home.test" }, { name: "Ben", address: "ben@x.test" }];
  assert.deepEqual(withoutOwn(boxes, new Set(["anna@home.test"])), [boxes[1]]);
});
