/**
 * Messages that are being written. One that is not visible exists only here;
 * once visible it lives in its compose window, and that is asked and written.
 */

import { MailError } from "./errors.js";
import { outgoingPath, idFromPath } from "./paths.js";

const HIDDEN_LIMIT = 100;

const messages = new Map();
let lastId = 0;

/** A new hidden message; the oldest hidden one goes when nobody ever showed or deleted a hundred. */
export function make(values) {
  const hidden = [...messages.values()].filter(message => message.tabId === null);
  if (hidden.length >= HIDDEN_LIMIT) {
    messages.delete(hidden[0].id);
  }
  const message = {
    id: ++lastId, subject: "", content: "", identityId: null, to: [], cc: [], bcc: [], attachments: [],
    answers: null, quote: null, tabId: null, windowId: null, plainSignature: "", ready: Promise.resolve(), ...values,
  };
  messages.set(message.id, message);
  return message;
}

export function path(message) {
  return outgoingPath(message.id);
}

export function find(objectPath) {
  const message = messages.get(idFromPath(objectPath, "outgoing"));
  if (!message) {
    throw new MailError("NoSuchObject", "The outgoing message is gone: it was sent, deleted or closed.");
  }
  return message;
}

export function forget(message) {
  messages.delete(message.id);
}

/** Runs one piece of work on a message after what was begun before, so that calls never mix. */
export function inTurn(message, work) {
  const turn = message.ready.then(() => {
    if (!messages.has(message.id)) {
      throw new MailError("NoSuchObject", "The outgoing message is gone: it was sent, deleted or closed.");
    }
    return work();
  });
  message.ready = turn.catch(() => {});
  return turn;
}

/** A compose window that a person closes or sends takes its message along. */
export function listen() {
  messenger.tabs.onRemoved.addListener(tabId => {
    for (const message of messages.values()) {
      if (message.tabId === tabId) {
        messages.delete(message.id);
      }
    }
  });
}
