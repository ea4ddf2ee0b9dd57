import assert from "node:assert/strict";
import { beforeEach, mock, test } from "node:test";

import { turns, useMessenger } from "./fake.mjs";
import { announceFocus, listen } from "../windows.js";

let told;
let thunderbird;

beforeEach(async () => {
  mock.timers.reset();
  mock.timers.enable({ apis: ["setTimeout"] });
  thunderbird = useMessenger({ windows: { getLastFocused: async () => ({ id: 1, focused: false, type: "normal" }) } });
  listen();
  told = [];
  await announceFocus(focused => told.push(focused));
});

function focus(windowId) {
  thunderbird.windows.onFocusChanged.fire(windowId);
}

test("the state is told when somebody begins to listen", () => {
  assert.deepEqual(told, [false]);
});

test("a gain is told at once, a loss when it lasts", () => {
  focus(1);
  assert.deepEqual(told, [false, true]);
  focus(-1);
  assert.deepEqual(told, [false, true]);
  mock.timers.tick(150);
  assert.deepEqual(told, [false, true, false]);
});

test("a change between two windows is no change", async () => {
  focus(1);
  focus(-1);
  mock.timers.tick(10);
  focus(2);
  mock.timers.tick(1000);
  await turns();
  assert.deepEqual(told, [false, true]);
});

test("a gain while it is asked who has the focus is not taken back", async () => {
  let answer;
  thunderbird.windows.getLastFocused = () => new Promise(resolve => { answer = resolve; });
  const asked = announceFocus(focused => told.push(focused));
  focus(1);
  answer({ id: 1, focused: false, type: "normal" });
  await asked;
  assert.equal(told.at(-1), true);
  focus(-1);
  mock.timers.tick(150);
  assert.equal(told.at(-1), false);
});
