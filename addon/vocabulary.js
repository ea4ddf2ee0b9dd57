/** Which function carries out which member of org.kest.Mail1. */

import { newMessage, replyInOne } from "./compound.js";
import { MailError } from "./errors.js";
import { listAccounts } from "./identities.js";
import * as outgoing from "./outgoing.js";
import * as replying from "./replying.js";
import { selection } from "./selection.js";
import { activate } from "./windows.js";
import * as writing from "./writing.js";

const recipients = kind => message => writing.getRecipients(message, kind);

/** By interface, then kind of call, then member. */
export const INTERFACES = {
  Application: {
    find: () => null,
    run: (_target, work) => work(),
    call: {
      Accounts: () => listAccounts(),
      Selection: () => selection(),
      MakeOutgoingMessage: (_target, values) => writing.makeOutgoingMessage(values),
      Activate: () => activate(),
      NewMessage: (_target, values) => newMessage(values),
      Reply: (_target, values) => replyInOne(values),
    },
  },
  Message: {
    find: replying.findMessage,
    run: (_target, work) => work(),
    call: { Reply: replying.reply, Delete: replying.deleteMessage },
    get: { ReplyTo: replying.getReplyTo, Subject: replying.getSubject },
  },
  OutgoingMessage: {
    find: outgoing.find,
    run: outgoing.inTurn,
    call: {
      AddRecipient: writing.addRecipient, InsertAttachment: writing.insertAttachment, Send: writing.sendOutgoing,
      Delete: writing.deleteOutgoing,
    },
    get: {
      Subject: writing.getSubject, Content: writing.getContent, Sender: writing.getSender, Visible: writing.isVisible,
      ToRecipients: recipients("to"), CcRecipients: recipients("cc"), BccRecipients: recipients("bcc"),
    },
    set: {
      Subject: writing.setSubject, Content: writing.setContent, Sender: writing.setSender, Visible: writing.setVisible,
    },
  },
};

/** Carries out one call from the host: {path, interface, kind: "call", "get" or "set", member, arguments}. */
export async function carryOut(call) {
  const known = INTERFACES[call.interface];
  const verb = known?.[call.kind]?.[call.member];
  if (!verb) {
    throw new MailError("Unsupported", `Thunderbird's half of Kest knows no ${call.interface}.${call.member}.`);
  }
  const target = await known.find(call.path);
  return known.run(target, () => verb(target, call.arguments));
}
