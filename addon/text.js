/**
 * What message texts need on their way into and out of a compose window. Pure
 * functions on strings; nothing here knows Thunderbird.
 */

const ESCAPES = { "&": "&amp;", "<": "&lt;", ">": "&gt;", '"': "&quot;" };

/** Plain text as HTML that shows the same: line feeds and runs of spaces kept. */
export function asHtml(text) {
  return text
    .replace(/[&<>"]/g, character => ESCAPES[character])
    .replace(/\t/g, "    ")
    .replace(/ (?= )|^ /gm, "&nbsp;")
    .replace(/\n/g, "<br>");
}

/** Puts HTML at the very start of a document's body. */
export function insertAtBodyStart(html, addition) {
  const start = /<body\b[^>]*>/i.exec(html);
  if (!start) {
    return addition + html;
  }
  const end = start.index + start[0].length;
  return html.slice(0, end) + addition + html.slice(end);
}

/** The same document with nothing but this HTML in its body. */
export function replaceBody(html, content) {
  const start = /<body\b[^>]*>/i.exec(html);
  return start ? `${html.slice(0, start.index + start[0].length)}${content}</body>` : content;
}

/** Takes the soft line breaks and the stuffing of RFC 3676 (format=flowed) out of a text. */
export function unflow(text) {
  const lines = [];
  let open = null;
  for (const raw of text.split("\n")) {
    const depth = /^>*/.exec(raw)[0].length;
    const said = raw.slice(depth).replace(/^ /, "");
    if (open === depth) {
      lines[lines.length - 1] += said;
    } else {
      lines.push(`${">".repeat(depth)}${depth && said ? " " : ""}${said}`);
    }
    open = said.endsWith(" ") && said !== "-- " ? depth : null;
  }
  return lines.join("\n");
}

/**
 * The place of the signature in a plain text as {start, end}, or null: its last
 * appearance, however its lines are broken.
 */
function placeOfSignature(text, signature) {
  const words = signature.split(/\s+/).filter(Boolean).map(word => word.replace(/[^\w\s]/g, "\\$&"));
  if (!words.length) {
    return null;
  }
  const last = [...text.matchAll(new RegExp(`(?<=^|\n)${words.join("\\s+")}`, "g"))].at(-1);
  return last ? { start: last.index, end: last.index + last[0].length } : null;
}

/**
 * Where the signature starts in a plain text, or -1. `signature` is its text,
 * the line "-- " included.
 */
export function findSignature(text, signature) {
  return placeOfSignature(text, signature)?.start ?? -1;
}

/** The text without its signature, and without the blank lines that set the signature off. */
export function withoutSignature(text, signature) {
  const place = placeOfSignature(text, signature);
  if (!place) {
    return text;
  }
  const before = text.slice(0, place.start).replace(/\n+$/, "");
  const after = text.slice(place.end).replace(/^\n+/, "");
  return after ? `${before}\n\n${after}` : before;
}
