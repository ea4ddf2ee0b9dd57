/** The few of Thunderbird's functions that a test makes behave as the real ones cannot be made to. */

/** As strict as the real one: beside white space it passes over nothing but a missing padding at the end. */
function fromBase64(text) {
  if (typeof text !== "string") {
    throw new TypeError("no string");
  }
  const bare = text.replace(/[\t\n\f\r ]/g, "");
  const [, said, padding] = /^([A-Za-z0-9+/]*)(=*)$/.exec(bare) ?? [];
  const over = said?.length % 4;
  if (said === undefined || over === 1 || (padding && (over === 0 || over + padding.length !== 4))) {
    throw new SyntaxError("no base64");
  }
  return new Uint8Array(Buffer.from(said, "base64"));
}

Uint8Array.fromBase64 ??= fromBase64;

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

/** A port to a host, put behind the others in the list; `sent` is what it was told. */
export function newPort(ports) {
  const port = { onMessage: event(), onDisconnect: event(), sent: [], postMessage: message => port.sent.push(message) };
  ports.push(port);
  return port;
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
