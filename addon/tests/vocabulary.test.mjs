import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";

import { useMessenger } from "./fake.mjs";
import { find, make, path } from "../outgoing.js";
import { carryOut, INTERFACES } from "../vocabulary.js";

const XML = readFileSync(new URL("../../resources/org.kest.Mail1.xml", import.meta.url), "utf8");
// The host answers for these itself.
const HOSTS_OWN = ["ProtocolVersion", "Version", "Features", "Name", "ApplicationVersion"];

function contract() {
  const interfaces = XML.matchAll(/<interface name="org\.kest\.Mail1\.(\w+)">([\s\S]*?)<\/interface>/g);
  return [...interfaces].map(([, name, body]) => ({
    name,
    methods: [...body.matchAll(/<method name="(\w+)"/g)].map(match => match[1]),
    properties: [...body.matchAll(/<property name="(\w+)" type="[^"]*" access="(\w+)"/g)].map(match => match.slice(1)),
  }));
}

test("every member of the contract is carried out, and none beside it", () => {
  for (const { name, methods, properties } of contract()) {
    const known = INTERFACES[name];
    assert.deepEqual(Object.keys(known.call).sort(), methods.sort());
    const readable = properties.map(([property]) => property).filter(property => !HOSTS_OWN.includes(property));
    assert.deepEqual(Object.keys(known.get ?? {}).sort(), readable.sort());
    const writable = properties.filter(([, access]) => access === "readwrite").map(([property]) => property);
    assert.deepEqual(Object.keys(known.set ?? {}).sort(), writable.sort());
  }
});

test("a member that is unknown fails in words", async () => {
  for (const [interfaceName, kind, member] of [
    ["Application", "call", "Explode"], ["Nothing", "get", "Subject"], ["Message", "set", "Subject"]]) {
    await assert.rejects(carryOut({ interface: interfaceName, kind, member }), { name: "Unsupported" });
  }
});

test("a hidden message is made, read, written and deleted without Thunderbird", async () => {
  useMessenger({});
  const made = await carryOut({
    interface: "Application", kind: "call", member: "MakeOutgoingMessage", path: "/org/kest/Mail1",
    arguments: { subject: "S", content: "C" } });
  const to = (kind, member, values) =>
    carryOut({ interface: "OutgoingMessage", kind, member, path: made, arguments: values });
  await to("set", "Content", "Other");
  await to("call", "AddRecipient", { kind: "cc", name: "N", address: "a@b.test" });
  assert.equal(await to("get", "Content"), "Other");
  assert.deepEqual(await to("get", "CcRecipients"), [["N", "a@b.test"]]);
  assert.equal(await to("get", "Visible"), false);
  await to("call", "Delete", {});
  await assert.rejects(to("get", "Content"), { name: "NoSuchObject" });
});

test("a message that vanishes while Thunderbird works on it fails what waits behind", async () => {
  let release;
  useMessenger({ compose: { setComposeDetails: () => new Promise(resolve => { release = resolve; }) } });
  const message = make({ tabId: 9 });
  const call = (kind, member, values) =>
    carryOut({ interface: "OutgoingMessage", kind, member, path: path(message), arguments: values });
  const first = call("set", "Subject", "slow");
  const second = assert.rejects(call("get", "Visible"), { name: "NoSuchObject" });
  await new Promise(resolve => setImmediate(resolve));
  const { forget } = await import("../outgoing.js");
  forget(message);
  release();
  await first;
  await second;
});

test("hidden messages that nobody wants any more do not pile up", () => {
  const first = make({});
  for (let count = 0; count < 200; count++) {
    make({});
  }
  assert.throws(() => find(path(first)), { name: "NoSuchObject" });
});
