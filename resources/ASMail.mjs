// How Kest prepares mail. Copy this file to ~/.local/share/kest/ASMail.mjs and change the copy to have it your way; Kest
// uses the copy only when nobody but you can write to it and to its folder.
//
// "kest" offers:
//   mailApp                    the mail application: accounts, selection, outgoingMessages, features, lastError,
//                              activate(), classForScriptingClass(name), newMessage(...), reply(...)
//   displayAlert(text, more)   shows an alert and waits until it is dismissed
//   log(line)                  writes a line to the system log
//
// Nothing that the mail application cannot do raises an exception: the call yields an empty result, and
// mailApp.lastError says why until the next call succeeds.

import { mailApp, displayAlert } from "kest";

const noAccountChosen = "*none found*";

// The message whose sender was asked for. The reply that follows answers it even when another one is selected by then:
// the recording already carries that sender's name.
let named;

// Subject, body: texts. Attachments: a list of paths or file URLs, or null. The index counts from the start of the body.
export function mailNewMessageWithSubject(subject, body, attachments, insertionIndex, accountName) {
    const account = chosenAccount(accountName);
    const features = mailApp.features;
    if (failed())
        return;
    if (features.includes("NewMessage")) {
        mailApp.newMessage(subject, body, account, insertionIndex, attachments ?? []);
        failed();
        return;
    }
    const message = make("outgoing message", { subject: subject, content: body });
    mailApp.outgoingMessages.addObject(message);
    if (failed())
        return;
    if (!chooseSender(message, account) || !attach(message, attachments, insertionIndex) || !show(message))
        discard(message);
}

// Answers the last of the selected messages, or the one whose sender has just been asked for, in the mail application's own
// reply, the text above the quote.
export function mailReplyAppendingBodyText(bodyText, attachments, withReplyAll, sendingReply, deletingOriginal,
                                           insertionIndex, accountName) {
    const account = chosenAccount(accountName);
    const original = named ?? lastSelectedMessage();
    named = undefined;
    if (failed() || !original)
        return;
    const features = mailApp.features;
    if (failed())
        return;
    if (features.includes("Reply")) {
        const flags = { replyToAll: withReplyAll, send: sendingReply, deleteOriginal: deletingOriginal };
        mailApp.reply(original, bodyText, account, flags, insertionIndex, attachments ?? []);
        failed();
        return;
    }
    const reply = original.replyOpeningWindow(false, withReplyAll);
    if (failed())
        return;
    if (!putAboveQuote(reply, bodyText) || !chooseSender(reply, account) || !attach(reply, attachments, insertionIndex)) {
        discard(reply);
        return;
    }
    if (sendingReply && !send(reply)) {
        show(reply); // so that it can be sent later, or changed
        return;
    }
    if (!sendingReply && !show(reply)) {
        discard(reply);
        return;
    }
    if (deletingOriginal) {
        original.deleteMessage();
        failed();
    }
}

// Where the answer to the last of the selected messages would go, or null.
export function mailReplyGetSender() {
    const original = lastSelectedMessage();
    const sender = original ? original.replyTo : "";
    named = sender ? original : undefined;
    return sender ? sender : null;
}

// The names of the accounts, or null when there is none.
export function retrieveEmailAccounts() {
    const names = mailApp.accounts.map(account => account.name);
    return names.length > 0 ? names : null;
}

// Shows the error of the last call, if it failed.
function failed() {
    const error = mailApp.lastError;
    if (!error)
        return false;
    displayAlert(error.description, error.failureReason);
    return true;
}

function make(className, properties) {
    return mailApp.classForScriptingClass(className).initWithProperties(properties);
}

function chosenAccount(accountName) {
    return accountName === noAccountChosen ? "" : accountName;
}

function lastSelectedMessage() {
    const messages = mailApp.selection;
    return messages[messages.length - 1];
}

// Writes from the account's identity. An account that is not there any more leaves the mail application's default.
function chooseSender(message, accountName) {
    if (!accountName)
        return true;
    const account = mailApp.accounts.find(each => each.name === accountName);
    if (failed())
        return false;
    if (account)
        message.sender = account.sender;
    return !failed();
}

function putAboveQuote(reply, bodyText) {
    const quote = reply.content.get();
    if (failed())
        return false;
    reply.setContent(bodyText + quote);
    return !failed();
}

function attach(message, attachments, insertionIndex) {
    for (const file of attachments ?? []) {
        message.content.characters.insertObject(make("attachment", { fileName: file }), insertionIndex);
        if (failed())
            return false;
    }
    return true;
}

// Nobody would ever see a message that was not shown.
function discard(message) {
    message.deleteMessage();
}

function send(message) {
    message.send();
    return !failed();
}

// True when it is shown; that the mail application does not come forward is told, but no reason to give up.
function show(message) {
    message.visible = true;
    if (failed())
        return false;
    mailApp.activate();
    failed();
    return true;
}
