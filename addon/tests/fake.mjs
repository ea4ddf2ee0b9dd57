/** The few of Thunderbird's functions that a test makes behave as the real ones cannot be made to. */

if (!Uint8Array.fromBase64) {
  Uint8Array.fromBase64 = text => new Uint8Array(Buffer.from(text, "base64"));
}

/** An event that tests fire: `event.fire(...arguments)`. */
export function event() {
  const listeners = new Set();
  return {
    addListener: listener => listeners.add(listener),
    removeListener: listener => listeners.delete(listener),
    fire: (...values) => listeners.forEach(listener => listener(...values)),
    count: () => listeners.size,
  };
}

/** Puts a fresh messenger into place, made of these parts, and returns it. */
export function useMessenger(parts) {
  globalThis.messenger = {
    tabs: { onRemoved: event(), get: async id => ({ id }), ...parts.tabs },
    windows: { onFocusChanged: event(), get: async id => ({ id, type: "normal", focused: true }), ...parts.windows },
    compose: { ...parts.compose },
    messages: { ...parts.messages },
    accounts: { list: async () => [], getDefault: async () => null, ...parts.accounts },
    identities: { ...parts.identities },
    mailTabs: { ...parts.mailTabs },
    messageDisplay: { ...parts.messageDisplay },
    messengerUtilities: { parseMailboxString: async text => parse(text), ...parts.messengerUtilities },
    runtime: { ...parts.runtime },
  };
  return globalThis.messenger;
}

/** Where only plain text is written: a parser of HTML that finds nothing in it. */
export function useEmptyHtml() {
  globalThis.DOMParser = class {
    parseFromString() {
      return { querySelector: () => null };
    }
  };
}

function parse(text) {
  return text.split(",").filter(Boolean).map(part => {
    const match = /^\s*(?:(.*?)\s*<([^>]*)>|(\S+))\s*$/.exec(part);
    return match[3] ? { email: match[3] } : { name: match[1], email: match[2] };
  });
}

/** Lets everything that is ready go on, for as many turns. */
export async function turns(count = 20) {
  for (let turn = 0; turn < count; turn++) {
    await new Promise(resolve => setImmediate(resolve));
  }
}
