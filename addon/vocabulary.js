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
      NewMessage: (_target, values, files) => newMessage(values, files),
      Reply: (_target, values, files) => replyInOne(values, files),
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

const KINDS = ["call", "get", "set"];

/** What an object itself has by that name; never what all objects have. */
function own(object, name) {
  return object && typeof name === "string" && Object.hasOwn(object, name) ? object[name] : undefined;
}

/** Carries out one call from the host: {path, interface, kind: "call", "get" or "set", member, arguments}, with its files. */
export async function carryOut(call, files) {
  const known = own(INTERFACES, call.interface);
  const verb = KINDS.includes(call.kind) && own(own(known, call.kind), call.member);
  if (!verb) {
    throw new MailError("Unsupported", `Thunderbird's half of Kest knows no ${call.interface}.${call.member}.`);
  }
  const target = await known.find(call.path);
  return known.run(target, () => verb(target, call.arguments, files));
}
