/** The compose window: opening it for a message, its text, closing it. */

import { formatMailbox } from "./addresses.js";
import { plainFile } from "./attachments.js";
import { MailError } from "./errors.js";
import { asHtml, findSignature, insertAtBodyStart, replaceBody, unflow, withoutSignature } from "./text.js";
import { shown } from "./windows.js";

export function recipientList(mailboxes) {
  return mailboxes.map(box => formatMailbox(box.name, box.address));
}

/** The signature in a compose window's document. One in a quote is somebody else's. */
function signatureElement(html) {
  return new DOMParser().parseFromString(html, "text/html").querySelector("body > .moz-signature");
}

/** Its text, with its line "-- "; empty without one. */
function signatureIn(html) {
  const element = signatureElement(html);
  element?.querySelectorAll("br").forEach(line => line.replaceWith("\n"));
  return element?.textContent ?? "";
}

function signatureText(message, details) {
  return signatureIn(details.body) || message.plainSignature;
}

export async function details(message) {
  return messenger.compose.getComposeDetails(message.tabId);
}

/** The text of a compose window without its signature. */
export async function contentOf(message) {
  const now = await details(message);
  const text = now.isPlainText ? now.plainTextBody : unflow(now.plainTextBody).replaceAll("\u00a0", " ");
  return withoutSignature(text, signatureText(message, now));
}

async function writePlain(message, text, signature) {
  message.plainSignature = signature;
  await messenger.compose.setComposeDetails(message.tabId, { plainTextBody: text });
}

/** Replaces everything but the signature. */
export async function writeContent(message, content) {
  const now = await details(message);
  const signature = signatureText(message, now);
  if (now.isPlainText) {
    const start = findSignature(now.plainTextBody, signature);
    const kept = start < 0 ? "" : now.plainTextBody.slice(start);
    return writePlain(message, kept ? `${content}\n\n${kept}` : content, signature);
  }
  const kept = signatureElement(now.body)?.outerHTML ?? "";
  const body = replaceBody(now.body, asHtml(content) + (kept && `<br><br>${kept}`));
  return messenger.compose.setComposeDetails(message.tabId, { body });
}

/** Puts text above all that is there: the quote and the signature stay. */
export async function writeAbove(message, content) {
  const now = await details(message);
  if (now.isPlainText) {
    return writePlain(message, content + now.plainTextBody, signatureText(message, now));
  }
  const body = insertAtBodyStart(now.body, asHtml(content));
  return messenger.compose.setComposeDetails(message.tabId, { body });
}

/** Takes a window that Thunderbird has opened as the message's own. */
export function adopt(message, tab) {
  message.tabId = tab.id;
  message.windowId = tab.windowId;
  shown(tab.windowId);
}

/** With the attachments: adding them to a window that is there takes Thunderbird's queue once more for each. */
async function begin(message) {
  const attachments = message.attachments.map(({ name, file }) => ({ name, file }));
  const fields = { subject: message.subject, attachments };
  for (const kind of ["to", "cc", "bcc"]) {
    // An empty list would take out whom the account itself writes to with every new message.
    if (message.answers || message[kind].length > 0) {
      fields[kind] = recipientList(message[kind]);
    }
  }
  if (message.identityId) {
    fields.identityId = message.identityId;
  }
  if (message.answers) {
    const type = message.answers.all ? "replyToAll" : "replyToSender";
    return messenger.compose.beginReply(message.answers.id, type, fields);
  }
  return messenger.compose.beginNew(fields);
}

async function addToWindow(message, added, file) {
  const made = await messenger.compose.addAttachment(message.tabId, { file, name: added.name });
  added.id = made.id;
  delete added.file;
}

/**
 * Adds to the window's list at the place that the message's own list says.
 * Thunderbird only appends, and passes over a file that is attached already:
 * what must follow is taken out and added again.
 */
export async function attach(message, added) {
  await addToWindow(message, added, added.file);
  for (const later of message.attachments.slice(message.attachments.indexOf(added) + 1)) {
    const file = await messenger.compose.getAttachmentFile(later.id);
    await messenger.compose.removeAttachment(message.tabId, later.id);
    await addToWindow(message, later, plainFile([file], later.name));
  }
}

/** A reply's own quote, formatting included, stays where only text in front of it was added. */
async function fill(message) {
  const { content, quote } = message;
  if (quote === null || !content.endsWith(quote)) {
    return writeContent(message, content);
  }
  const added = content.slice(0, content.length - quote.length);
  return added && writeAbove(message, added);
}

/** Notes what Thunderbird calls the attachments that a window was opened with. Another add-on may have added its own. */
async function noteAttachments(message) {
  const there = await messenger.compose.listAttachments(message.tabId);
  const named = message.attachments.map(added => {
    const place = there.findIndex(each => each.name === added.name);
    return place < 0 ? null : there.splice(place, 1)[0];
  });
  message.attachments.forEach((added, at) => {
    const found = named[at] ?? there.shift();
    if (!found) {
      throw new MailError("Failed", `Thunderbird did not attach “${added.name}”.`);
    }
    added.id = found.id;
    delete added.file;
  });
}

/** Opens the window of a message that was hidden until now, with all that it holds. */
export async function open(message) {
  adopt(message, await begin(message));
  await fill(message);
  if (message.attachments.length > 0) {
    await noteAttachments(message);
    // Thunderbird asks before it closes a window that something was added to, but not where it opened with it.
    await messenger.compose.setComposeDetails(message.tabId, { isModified: true });
  }
}

/** Closes a compose window without a question. */
export async function close(tabId) {
  await messenger.compose.setComposeDetails(tabId, { isModified: false });
  await messenger.tabs.remove(tabId);
}

/** Changes who writes; Thunderbird then puts that identity's signature in the place of the present one. */
export async function changeIdentity(message, identityId) {
  if (message.plainSignature) {
    const now = await details(message);
    const signature = message.plainSignature;
    await writePlain(message, withoutSignature(now.plainTextBody, signature), "");
  }
  await messenger.compose.setComposeDetails(message.tabId, { identityId });
}
