/** Files on their way in, and the order of attachments in a message. */

import { MailError } from "./errors.js";

// Tools disagree on these; the registered names are RFC 4337 and RFC 2046.
const TYPES = { m4a: "audio/mp4", mp4: "video/mp4", txt: "text/plain" };

function extension(name) {
  return /\.([A-Za-z0-9]{1,8})$/.exec(name)?.[1] ?? "";
}

/** The bytes behind base64; null when it is none. */
function decoded(data) {
  try {
    return Uint8Array.fromBase64(data);
  } catch {
    return null;
  }
}

/** The files that one host reads out, by the numbers that it gives them. It gives each number once. */
export class Files {
  #arriving = new Map();
  #ended = new Set();

  /** One piece of a file; false when it is none. A file with such a piece, or that was dropped, never gets whole. */
  takeChunk({ chunk, data, last }) {
    if (!Number.isInteger(chunk) || typeof data !== "string" || this.#ended.has(chunk)) {
      return false;
    }
    const file = this.#arriving.get(chunk) ?? { parts: [], complete: false, broken: false };
    this.#arriving.set(chunk, file);
    const bytes = file.broken ? null : decoded(data);
    if (!bytes) {
      Object.assign(file, { parts: [], complete: false, broken: true });
      return false;
    }
    file.parts.push(new Blob([bytes]));
    file.complete = Boolean(last);
    return true;
  }

  /** The parts of a file that has arrived whole, else null; it is no longer here then. */
  takeOut(number) {
    const file = this.#arriving.get(number);
    this.drop(number);
    return file?.complete ? file.parts : null;
  }

  /** Nobody wants it any more, or not again: no piece begins it anew. */
  drop(number) {
    this.#arriving.delete(number);
    if (Number.isInteger(number)) {
      this.#ended.add(number);
    }
  }

  dropAll() {
    this.#arriving.clear();
  }
}

function checkName(name) {
  const bytes = new TextEncoder().encode(name).length;
  if (!name || name === "." || name === ".." || /[/\0]/.test(name) || bytes > 255) {
    throw new MailError("InvalidArgument", `“${name}” cannot be the name of an attachment.`);
  }
}

/**
 * The file to attach under a name. Thunderbird keeps a copy in a temporary file
 * named after it, so its own name is short and plain.
 */
export function plainFile(parts, name) {
  const suffix = extension(name);
  const type = TYPES[suffix.toLowerCase()] ?? "";
  return new File(parts, suffix ? `attachment.${suffix}` : "attachment", { type });
}

/** The attachment for a file that has arrived: {name, file, offset}. */
export function attachment(name, reference, files) {
  checkName(name);
  const parts = files.takeOut(reference?.file);
  if (!parts) {
    throw new MailError("Failed", `“${name}” did not arrive whole.`);
  }
  return { name, file: plainFile(parts, name), offset: 0 };
}

/**
 * Inserts at an offset of a content of that length. An attachment takes one
 * place there, so one that is inserted at the offset of another lands in front
 * of it; an offset beyond the end means the end.
 */
export function insertAt(list, added, offset, length) {
  added.offset = Math.min(offset, length + list.length);
  for (const present of list) {
    if (present.offset >= added.offset) {
      present.offset += 1;
    }
  }
  list.push(added);
  list.sort((one, other) => one.offset - other.offset);
}
