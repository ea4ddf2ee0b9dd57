/** The line to the native host: one port, held for as long as Thunderbird runs. */

const HOST = "org.kest.mailhost";
export const PROTOCOL = 1;

const FIRST_RETRY_MS = 500;
const LAST_RETRY_MS = 8000;
const SILENT_TRIES = 3;
const STEADY_MS = 10000;
const AT_ONCE_MS = 5000;

/** The object behind the base64 of its JSON; null when it is none. */
function parsed(base64) {
  try {
    const message = JSON.parse(new TextDecoder().decode(Uint8Array.fromBase64(base64)));
    return typeof message === "object" ? message : null;
  } catch {
    console.warn("Kest's mail host sent a message that cannot be read.");
    return null;
  }
}

/**
 * Connects, says hello and hands every message on. `talk(send)` is called for
 * each host and returns who talks with it: {opened, message, closed}; what is
 * sent to a host that has ended is dropped. A host that has spoken and
 * died is started again, after a growing pause, and so is one that gave a busy
 * Thunderbird up before it came to say hello. One that ends at once is tried a
 * few times and then left alone until the next open().
 */
export class Connection {
  #port = null;
  #talk = null;
  #pieces = [];
  #failures = 0;
  #spoke = false;
  #since = 0;
  #retry = null;

  constructor({ hello, talk }) {
    this.on = { hello, talk };
  }

  open() {
    if (this.#port || this.#retry) {
      return;
    }
    this.#spoke = false;
    this.#since = Date.now();
    this.#port = messenger.runtime.connectNative(HOST);
    const port = this.#port;
    const send = message => this.#send(port, message);
    this.#talk = this.on.talk(send);
    port.onMessage.addListener(message => this.#received(port, message));
    port.onDisconnect.addListener(() => this.#disconnected(port));
    this.on.hello().then(hello => send({ hello: { protocol: PROTOCOL, ...hello } }));
  }

  /** Serials and numbers of files begin anew with each host: the next one would take an answer for its own. */
  #send(port, message) {
    if (port === this.#port) {
      port.postMessage(message);
    }
  }

  #received(port, message) {
    if (port !== this.#port || message === null || typeof message !== "object") {
      return;
    }
    if (message.hello) {
      this.#spoke = true;
      this.#talk.opened(message.hello);
    } else if (typeof message.piece === "string") {
      this.#takePiece(message);
    } else {
      this.#talk.message(message);
    }
  }

  /** Long messages come in base64 pieces, because the browser passes at most one mebibyte at once. */
  #takePiece({ piece, last }) {
    this.#pieces.push(piece);
    if (last) {
      const message = parsed(this.#pieces.join(""));
      this.#pieces = [];
      if (message) {
        this.#talk.message(message);
      }
    }
  }

  #disconnected(port) {
    if (port !== this.#port) {
      return;
    }
    this.#port = null;
    this.#pieces = [];
    this.#talk.closed();
    const lasted = Date.now() - this.#since;
    this.#failures = this.#spoke && lasted > STEADY_MS ? 0 : this.#failures + 1;
    if (!this.#spoke && lasted < AT_ONCE_MS && this.#failures >= SILENT_TRIES) {
      console.warn("Kest's mail host does not start; see whether Kest is installed.");
      this.#failures = 0;
      return;
    }
    const pause = Math.min(FIRST_RETRY_MS * 2 ** Math.max(0, this.#failures - 1), LAST_RETRY_MS);
    this.#retry = setTimeout(() => {
      this.#retry = null;
      this.open();
    }, pause);
  }
}
