/**
 * The add-on on a real host, without Thunderbird: `addon.mjs HOST`. Starts the host as a mail application does and says on
 * standard output what is attached to a message: one JSON object a line, {name, text}.
 */

import { spawn } from "node:child_process";

import { event, useEmptyHtml, useMessenger } from "../../addon/tests/fake.mjs";

useEmptyHtml();

/** The pipes of a host as the browser's port: each message behind its length in 32 bits. */
function startHost(path) {
  const host = spawn(path, ["manifest.json", "kest@kest.invalid"], { stdio: ["pipe", "pipe", "inherit"] });
  const port = { onMessage: event(), onDisconnect: event() };
  port.postMessage = message => {
    const text = Buffer.from(JSON.stringify(message));
    const length = Buffer.alloc(4);
    length.writeUInt32LE(text.length);
    host.stdin.write(Buffer.concat([length, text]));
  };
  let waiting = Buffer.alloc(0);
  host.stdout.on("data", data => {
    waiting = Buffer.concat([waiting, data]);
    while (waiting.length >= 4 && waiting.length >= 4 + waiting.readUInt32LE(0)) {
      const end = 4 + waiting.readUInt32LE(0);
      port.onMessage.fire(JSON.parse(waiting.subarray(4, end).toString()));
      waiting = waiting.subarray(end);
    }
  });
  host.on("exit", code => process.exit(code ?? 1));
  process.stdin.on("end", () => host.stdin.end()).resume();
  return port;
}

let lastTab = 0;
let listed = [];
useMessenger({
  runtime: {
    onStartup: event(), onInstalled: event(), connectNative: () => startHost(process.argv[2]),
    getBrowserInfo: async () => ({ name: "Thunderbird", version: "153" }), getManifest: () => ({ version: process.argv[3] }),
  },
  windows: { getLastFocused: async () => null, getAll: async () => [], update: async () => {} },
  compose: {
    beginNew: async ({ attachments }) => {
      for (const { file, name } of attachments) {
        console.log(JSON.stringify({ name, text: await file.text() }));
      }
      listed = attachments.map(({ name }) => ({ id: ++lastTab, name }));
      return { id: ++lastTab, windowId: lastTab };
    },
    listAttachments: async () => listed,
    getComposeDetails: async () => ({ isPlainText: true, plainTextBody: "", body: "" }),
    setComposeDetails: async () => {},
  },
});
await import("../../addon/background.js");
