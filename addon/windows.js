/** Windows: which one was used last, bringing one to the front, who has the keyboard focus. */

import { MailError } from "./errors.js";

const NONE = -1;
const BETWEEN_WINDOWS_MS = 150;

let lastViewer = null;
let lastShown = null;
let focused = false;
let losing = null;
let focusChanges = 0;
let announce = () => {};

function setFocused(now) {
  if (now !== focused) {
    focused = now;
    announce(now);
  }
}

async function remember(windowId) {
  const window = await messenger.windows.get(windowId).catch(() => null);
  if (window?.type === "normal" || window?.type === "messageDisplay") {
    lastViewer = windowId;
  }
}

/** Between two windows of its own Thunderbird reports "none" for a moment: only a lasting loss counts. */
function focusChanged(windowId) {
  clearTimeout(losing);
  focusChanges += 1;
  if (windowId === NONE) {
    losing = setTimeout(() => setFocused(false), BETWEEN_WINDOWS_MS);
    return;
  }
  setFocused(true);
  remember(windowId);
}

export function listen() {
  messenger.windows.onFocusChanged.addListener(focusChanged);
}

/** From now on `callback(focused)` is told of every change, and of the state right now. */
export async function announceFocus(callback) {
  announce = callback;
  const before = focusChanges;
  const window = await messenger.windows.getLastFocused().catch(() => null);
  // Where the focus has moved meanwhile, the answer is of before.
  if (before === focusChanges) {
    focused = Boolean(window?.focused);
    if (focused) {
      await remember(window.id);
    }
  }
  callback(focused);
}

/** The viewer (main or message window) used last, or null. */
export async function viewer() {
  const windows = await messenger.windows.getAll({ windowTypes: ["normal", "messageDisplay"] });
  const focusedNow = windows.find(window => window.focused);
  return focusedNow ?? windows.find(window => window.id === lastViewer)
    ?? windows.find(window => window.type === "normal") ?? windows[0] ?? null;
}

/** Notes a compose window that was made visible: the one that Activate means. */
export function shown(windowId) {
  lastShown = windowId;
}

export async function raise(windowId) {
  const window = await messenger.windows.get(windowId);
  const state = window.state === "minimized" ? { state: "normal" } : {};
  await messenger.windows.update(windowId, { ...state, focused: true });
}

/** Application.Activate */
export async function activate() {
  const compose = lastShown === null ? null : await messenger.windows.get(lastShown).catch(() => null);
  const target = compose ?? await viewer();
  if (!target) {
    throw new MailError("Failed", "Thunderbird has no window to show.");
  }
  await raise(target.id);
}
