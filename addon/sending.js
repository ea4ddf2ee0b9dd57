/** Sending, confirmed. */

import { details } from "./composing.js";
import { MailError } from "./errors.js";
import { forget } from "./outgoing.js";
import { raise } from "./windows.js";

const PROMPT_MS = 5000;
const READY_MS = 3000;
const AFTER_CLOSE_MS = 3000;
const CONFIRM_MS = 1500;

function pause(milliseconds) {
  return new Promise(resolve => setTimeout(resolve, milliseconds));
}

/** Fails some time after the window has gone: by then a send that succeeded has said so. */
function closedUnsent(tabId) {
  let stop;
  const failed = new Promise((_resolve, reject) => {
    const removed = async closed => {
      if (closed === tabId) {
        await pause(AFTER_CLOSE_MS);
        reject(new MailError("Failed", "The message was closed before it was sent."));
      }
    };
    messenger.tabs.onRemoved.addListener(removed);
    stop = () => messenger.tabs.onRemoved.removeListener(removed);
  });
  failed.catch(() => {});
  return { failed, stop };
}

async function checkRecipients(message) {
  const { to, cc, bcc, newsgroups } = await details(message);
  if (![to, cc, bcc, newsgroups].some(list => list?.length)) {
    throw new MailError("Failed", "The message has no recipient.");
  }
}

/** A window that has just opened does not offer Send at once. */
async function sendWhenReady(tabId) {
  const deadline = Date.now() + READY_MS;
  for (;;) {
    try {
      return await messenger.compose.sendMessage(tabId, { mode: "sendNow" });
    } catch (error) {
      if (!/not ready/.test(error.message)) {
        throw error;
      }
      if (Date.now() > deadline) {
        throw new MailError("Failed",
          "Thunderbird does not offer to send this message: it may be offline, or an address may be incomplete.");
      }
      await pause(50);
    }
  }
}

async function isOpen(tabId) {
  return Boolean(await messenger.tabs.get(tabId).catch(() => null));
}

/**
 * Thunderbird resolves its promise even when the server refused: only a sent
 * message has got its Message-ID, and only a sent message's window closes.
 */
async function confirm(result, tabId) {
  const deadline = Date.now() + CONFIRM_MS;
  while (Date.now() < deadline && await isOpen(tabId)) {
    await pause(20);
  }
  if (!result.headerMessageId && await isOpen(tabId)) {
    throw new MailError("Failed", "Thunderbird could not send the message; it is still open there.");
  }
}

/**
 * Sends what stands in the message's window; returns when the server took it.
 * While Thunderbird asks the person something it stays unsent: after some
 * seconds the window is raised so that the question is seen. A message that
 * was not sent keeps its window.
 */
export async function send(message) {
  await checkRecipients(message);
  const { tabId, windowId } = message;
  const closed = closedUnsent(tabId);
  const prompt = setTimeout(() => raise(windowId).catch(() => {}), PROMPT_MS);
  try {
    await confirm(await Promise.race([sendWhenReady(tabId), closed.failed]), tabId);
  } finally {
    clearTimeout(prompt);
    closed.stop();
  }
  forget(message);
}
