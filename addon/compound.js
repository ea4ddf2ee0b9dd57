/** Whole tasks in one call. */

import { attachment, insertAt } from "./attachments.js";
import * as composing from "./composing.js";
import { MailError, wordsOf } from "./errors.js";
import { accountNamed } from "./identities.js";
import * as outgoing from "./outgoing.js";
import { NO_OBJECT } from "./paths.js";
import { deleteMessage, findMessage, openReply } from "./replying.js";
import { send } from "./sending.js";
import { raise } from "./windows.js";

/** Application.NewMessage */
export async function newMessage({ subject, content, account, index, attachments }, files) {
  const chosen = await accountNamed(account);
  const message = outgoing.make({ subject, content, identityId: chosen?.identities[0].id ?? null });
  try {
    for (const [name, file] of attachments) {
      insertAt(message.attachments, attachment(name, file, files), index, content.length);
    }
  } catch (error) {
    outgoing.forget(message);
    throw error;
  }
  await outgoing.inTurn(message, async () => {
    await composing.open(message);
    await raise(message.windowId);
  });
  return outgoing.path(message);
}

/** Deletes what was answered. Where that fails nobody may think that the reply failed, and send it again. */
async function deleteAnswered(message, sent) {
  try {
    await deleteMessage(message);
  } catch (error) {
    const why = wordsOf(error);
    if (sent) {
      throw new MailError("Failed", `The reply was sent, but the original could not be deleted: ${why}`);
    }
    throw new MailError("Failed", `The reply is there, but the original could not be deleted: ${why}`);
  }
}

/** Application.Reply */
export async function replyInOne({ original, content, account, replyToAll, send: sendNow, deleteOriginal, index,
  attachments }, files) {
  const message = await findMessage(original);
  const added = attachments.map(([name, file]) => attachment(name, file, files));
  const reply = await openReply(message, replyToAll, await accountNamed(account));
  return outgoing.inTurn(reply, async () => {
    reply.content = content;
    await composing.writeAbove(reply, content);
    for (const each of added) {
      insertAt(reply.attachments, each, index, content.length);
      await composing.attach(reply, each);
    }
    await (sendNow ? send(reply) : raise(reply.windowId));
    if (deleteOriginal) {
      await deleteAnswered(message, sendNow);
    }
    return sendNow ? NO_OBJECT : outgoing.path(reply);
  });
}
