import assert from "node:assert/strict";
import { beforeEach, mock, test } from "node:test";

import { newPort, turns, useMessenger } from "./fake.mjs";
import { Connection } from "../connection.js";

let ports = [];
let heard = [];

function connect(hello = async () => ({ version: "1", name: "Thunderbird", applicationVersion: "153" })) {
  const connection = new Connection({
    hello,
    talk: () => ({
      opened: () => heard.push("opened"),
      message: message => heard.push(message),
      closed: () => heard.push("closed"),
    }),
  });
  connection.open();
  return connection;
}

beforeEach(() => {
  ports = [];
  heard = [];
  mock.timers.reset();
  mock.timers.enable({ apis: ["setTimeout"] });
  useMessenger({ runtime: { connectNative: () => newPort(ports) } });
});

test("it says hello at once", async () => {
  connect();
  await turns();
  assert.equal(ports[0].sent[0].hello.protocol, 1);
  assert.equal(ports[0].sent[0].hello.version, "1");
});

test("opening twice keeps the one port", () => {
  connect().open();
  assert.equal(ports.length, 1);
});

test("a host that spoke and died is started again after half a second", () => {
  connect();
  ports[0].onMessage.fire({ hello: {} });
  ports[0].onDisconnect.fire();
  assert.deepEqual(heard, ["opened", "closed"]);
  mock.timers.tick(499);
  assert.equal(ports.length, 1);
  mock.timers.tick(1);
  assert.equal(ports.length, 2);
});

test("a host that keeps dying is started ever more slowly, down to once in eight seconds", () => {
  connect();
  for (let death = 0; death < 6; death++) {
    ports.at(-1).onMessage.fire({ hello: {} });
    ports.at(-1).onDisconnect.fire();
    mock.timers.tick(8000);
  }
  ports.at(-1).onMessage.fire({ hello: {} });
  ports.at(-1).onDisconnect.fire();
  const count = ports.length;
  mock.timers.tick(7999);
  assert.equal(ports.length, count);
  mock.timers.tick(1);
  assert.equal(ports.length, count + 1);
});

test("a host that ends at once is left alone after three tries, until the next open", () => {
  mock.method(console, "warn", () => {});
  const connection = connect();
  for (let round = 0; round < 20; round++) {
    ports.at(-1).onDisconnect.fire();
    mock.timers.tick(60000);
  }
  assert.equal(ports.length, 3);
  connection.open();
  assert.equal(ports.length, 4);
});

test("a host that gives a busy Thunderbird up is started again each time", () => {
  mock.timers.reset();
  mock.timers.enable({ apis: ["setTimeout", "Date"] });
  connect();
  for (let round = 0; round < 20; round++) {
    mock.timers.tick(10000);
    ports.at(-1).onDisconnect.fire();
    mock.timers.tick(8000);
  }
  assert.equal(ports.length, 21);
});

test("a disconnect of an old port does not touch the new one", () => {
  connect();
  ports[0].onMessage.fire({ hello: {} });
  ports[0].onDisconnect.fire();
  mock.timers.tick(500);
  ports[0].onDisconnect.fire();
  mock.timers.tick(60000);
  assert.equal(ports.length, 2);
});

test("a hello that was a long time coming is said to the host that it was for, or to none", async () => {
  const hellos = [];
  connect(() => new Promise(resolve => hellos.push(resolve)));
  ports[0].onMessage.fire({ hello: {} });
  ports[0].onDisconnect.fire();
  mock.timers.tick(500);
  hellos[0]({ version: "1" });
  await turns();
  assert.deepEqual(ports.map(port => port.sent), [[], []]);
  hellos[1]({ version: "1" });
  await turns();
  assert.deepEqual(ports.map(port => port.sent.length), [0, 1]);
});

test("what a host says after its end is passed over", () => {
  connect();
  ports[0].onDisconnect.fire();
  mock.timers.tick(500);
  const bytes = Buffer.from(JSON.stringify({ call: 7 })).toString("base64");
  ports[0].onMessage.fire({ piece: bytes.slice(0, 4), last: false });
  ports[0].onMessage.fire({ call: 6 });
  ports[1].onMessage.fire({ piece: bytes, last: true });
  assert.deepEqual(heard, ["closed", { call: 7 }]);
});

test("pieces of a long message are put together", () => {
  connect();
  const bytes = Buffer.from(JSON.stringify({ call: 7, text: "ä".repeat(10) }));
  ports[0].onMessage.fire({ piece: bytes.subarray(0, 12).toString("base64"), last: false });
  assert.deepEqual(heard, []);
  ports[0].onMessage.fire({ piece: bytes.subarray(12).toString("base64"), last: true });
  assert.deepEqual(heard, [{ call: 7, text: "ä".repeat(10) }]);
});
