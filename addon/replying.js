/** The verbs of a message in a folder. */

import { displayMailbox, parseMailboxes, withoutOwn } from "./addresses.js";
import * as composing from "./composing.js";
import { isEncrypted, isToBeEncrypted, refuseInClear } from "./encryption.js";
import { MailError } from "./errors.js";
import { identityForAnswer, ownAddresses } from "./identities.js";
import * as outgoing from "./outgoing.js";
import { idFromPath } from "./paths.js";

/** The message behind an object path. */
export async function findMessage(path) {
  const id = idFromPath(path, "message");
  try {
    return await messenger.messages.get(id);
  } catch {
    throw new MailError("NoSuchObject", "The message is no longer in Thunderbird.");
  }
}

export function getSubject(message) {
  return message.subject;
}

/** Where an answer goes: Reply-To, else From. */
export async function getReplyTo(message) {
  const headers = await messenger.messages.getHeaders(message.id).catch(() => ({}));
  const answers = await parseMailboxes(headers["reply-to"] ?? []);
  const [box] = answers.length ? answers : await parseMailboxes(message.author);
  return box ? displayMailbox(box.name, box.address) : "";
}

/** Moves it to the trash of its account. */
export async function deleteMessage(message) {
  await messenger.messages.delete([message.id]);
}

/** One's own addresses go from a reply to all, unless nobody else would be left. */
async function stripOwn(tabId, details) {
  const own = await ownAddresses();
  const changes = {};
  for (const kind of ["to", "cc"]) {
    const boxes = await parseMailboxes(details[kind]);
    const kept = withoutOwn(boxes, own);
    if (kept.length < boxes.length && (kind === "cc" || kept.length)) {
      changes[kind] = composing.recipientList(kept);
    }
  }
  if (Object.keys(changes).length) {
    await messenger.compose.setComposeDetails(tabId, changes);
  }
}

/** Works on a reply that nobody has been told of yet; where that fails, it goes, and its window with it. */
async function orDiscard(reply, work) {
  const { tabId } = reply;
  try {
    await work();
  } catch (error) {
    outgoing.forget(reply);
    await composing.close(tabId).catch(() => {}); // the person may have closed it
    throw error;
  }
}

/** Opens Thunderbird's own reply as an outgoing message, by the right identity. */
export async function openReply(message, all, account) {
  const identity = await identityForAnswer(message, account);
  const type = all ? "replyToAll" : "replyToSender";
  const tab = await messenger.compose.beginReply(message.id, type, { identityId: identity.id });
  const reply = outgoing.make({ identityId: identity.id, answers: { id: message.id, all } });
  composing.adopt(reply, tab);
  if (all) {
    await orDiscard(reply, async () => stripOwn(tab.id, await composing.details(reply)));
  }
  return reply;
}

/**
 * What a reply's window holds, kept in the message itself; the window goes. Not
 * where Thunderbird would encrypt it: what is read out of here goes into another
 * message, which knows nothing of that.
 */
async function hide(reply) {
  const { tabId } = reply;
  reply.quote = await composing.contentOf(reply);
  reply.content = reply.quote;
  const details = await composing.details(reply);
  if (isToBeEncrypted(details)) {
    refuseInClear();
  }
  reply.subject = details.subject;
  for (const kind of ["to", "cc", "bcc"]) {
    reply[kind] = await parseMailboxes(details[kind]);
  }
  reply.tabId = null;
  reply.windowId = null;
  await composing.close(tabId);
}

export async function reply(message, { openingWindow, replyToAll }) {
  if (!openingWindow && await isEncrypted(message)) {
    refuseInClear();
  }
  const made = await openReply(message, replyToAll, null);
  if (!openingWindow) {
    await orDiscard(made, () => hide(made));
  }
  return outgoing.path(made);
}
