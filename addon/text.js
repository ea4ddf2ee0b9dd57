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

function squeeze(text) {
  return text.replace(/\s+/g, " ").trim();
}

/**
 * Where the signature starts in a plain text, or -1: the last line "-- " that
 * is followed by the signature's text, whatever the line breaks in it.
 * `signature` is the signature's text including that line.
 */
export function findSignature(text, signature) {
  const wanted = squeeze(signature);
  if (!wanted) {
    return -1;
  }
  const lines = text.split("\n");
  let offset = text.length;
  for (let index = lines.length - 1; index >= 0; index--) {
    offset -= lines[index].length;
    if (squeeze(lines[index]) && wanted.startsWith(squeeze(lines[index]))
        && squeeze(text.slice(offset)).startsWith(wanted)) {
      return offset;
    }
    offset -= 1;
  }
  return -1;
}

/** The text without its signature, and without the blank lines that set the signature off. */
export function withoutSignature(text, signature) {
  const start = findSignature(text, signature);
  if (start < 0) {
    return text;
  }
  const rest = text.slice(start);
  const wanted = squeeze(signature).length;
  let end = 0;
  for (let seen = 0; end < rest.length && seen < wanted; end++) {
    seen = squeeze(rest.slice(0, end + 1)).length;
  }
  const after = rest.slice(end).replace(/^\n+/, "");
  const before = text.slice(0, start).replace(/\n+$/, "");
  return after ? `${before}\n\n${after}` : before;
}
