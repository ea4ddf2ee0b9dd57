/** The verbs of an outgoing message. */

import { displayMailbox, parseMailboxes } from "./addresses.js";
import { attachment, insertAt } from "./attachments.js";
import * as composing from "./composing.js";
import { MailError } from "./errors.js";
import { identityOfSender, senderOf } from "./identities.js";
import * as outgoing from "./outgoing.js";
import { send } from "./sending.js";

function isVisible(message) {
  return message.tabId !== null;
}

/** Application.MakeOutgoingMessage */
export function makeOutgoingMessage({ subject, content }) {
  return outgoing.path(outgoing.make({ subject, content }));
}

export async function getSubject(message) {
  return isVisible(message) ? (await composing.details(message)).subject : message.subject;
}

export async function setSubject(message, value) {
  if (isVisible(message)) {
    await messenger.compose.setComposeDetails(message.tabId, { subject: value });
  }
  message.subject = value;
}

export async function getContent(message) {
  return isVisible(message) ? composing.contentOf(message) : message.content;
}

export async function setContent(message, value) {
  if (isVisible(message)) {
    await composing.writeContent(message, value);
  }
  message.content = value;
}

export async function getSender(message) {
  if (!isVisible(message)) {
    return senderOf(message.identityId);
  }
  const [from] = await parseMailboxes((await composing.details(message)).from);
  return from ? displayMailbox(from.name, from.address) : "";
}

export async function setSender(message, value) {
  const identity = await identityOfSender(value);
  message.identityId = identity.id;
  if (isVisible(message)) {
    await composing.changeIdentity(message, identity.id);
  }
}

export async function setVisible(message, value) {
  if (value && !isVisible(message)) {
    await composing.open(message);
  } else if (!value && isVisible(message)) {
    throw new MailError("Unsupported", "A message that is shown cannot be hidden again.");
  }
}

/** Reads one list of recipients: "to", "cc" or "bcc". */
export async function getRecipients(message, kind) {
  const boxes = isVisible(message) ? await parseMailboxes((await composing.details(message))[kind]) : message[kind];
  return boxes.map(box => [box.name, box.address]);
}

export async function addRecipient(message, { kind, name, address }) {
  if (!["to", "cc", "bcc"].includes(kind)) {
    throw new MailError("InvalidArgument", `“${kind}” is no kind of recipient.`);
  }
  if (!address.trim()) {
    throw new MailError("InvalidArgument", "A recipient needs an address.");
  }
  if (!isVisible(message)) {
    message[kind].push({ name, address });
    return;
  }
  const present = await parseMailboxes((await composing.details(message))[kind]);
  const list = composing.recipientList([...present, { name, address }]);
  await messenger.compose.setComposeDetails(message.tabId, { [kind]: list });
}

export async function insertAttachment(message, { fileName, file, index }, files) {
  const added = attachment(fileName, file, files);
  insertAt(message.attachments, added, index, message.content.length);
  if (isVisible(message)) {
    await composing.attach(message, added);
  }
}

export async function sendOutgoing(message) {
  if (!isVisible(message)) {
    await composing.open(message);
  }
  await send(message);
}

export async function deleteOutgoing(message) {
  outgoing.forget(message);
  if (isVisible(message)) {
    await composing.close(message.tabId);
  }
}

export { isVisible };
