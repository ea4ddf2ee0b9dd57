/** Accounts and the identities that mail is written as. */

import { bareAddress, displayMailbox, parseMailboxes } from "./addresses.js";
import { MailError } from "./errors.js";

async function sendingAccounts() {
  const accounts = await messenger.accounts.list(false);
  return accounts.filter(account => account.identities.length > 0 && account.type !== "nntp");
}

function sender(identity) {
  return displayMailbox(identity.name, identity.email);
}

/** Application.Accounts */
export async function listAccounts() {
  const accounts = await sendingAccounts();
  return accounts.map(account => [account.id, account.name, sender(account.identities[0])]);
}

/** Every identity that can send, the default account's default first. */
export async function allIdentities() {
  const accounts = await sendingAccounts();
  const preferred = await messenger.accounts.getDefault(false);
  const rank = account => (account.id === preferred?.id ? 0 : 1);
  return accounts.sort((one, other) => rank(one) - rank(other)).flatMap(account => account.identities);
}

/** The addresses of all identities, in lower case. */
export async function ownAddresses() {
  return new Set((await allIdentities()).map(identity => identity.email.toLowerCase()));
}

export async function defaultIdentity() {
  const [first] = await allIdentities();
  if (!first) {
    throw new MailError("Failed", "Thunderbird has no account that can send mail.");
  }
  return first;
}

/** The text that shows an identity as a sender; the default one's for null. */
export async function senderOf(identityId) {
  return sender(identityId ? await messenger.identities.get(identityId) : await defaultIdentity());
}

/** The identity whose sender text this is, or that has at least its address. */
export async function identityOfSender(text) {
  const identities = await allIdentities();
  const found = identities.find(identity => sender(identity) === text)
    ?? identities.find(identity => identity.email.toLowerCase() === bareAddress(text));
  if (!found) {
    throw new MailError("InvalidArgument", `“${text}” is none of Thunderbird's senders.`);
  }
  return found;
}

/** The account with that name; null for an empty or unknown one. */
export async function accountNamed(name) {
  return (await sendingAccounts()).find(account => account.name === name) ?? null;
}

async function addressedTo(message) {
  const boxes = await parseMailboxes([...message.recipients, ...message.ccList]);
  const headers = await messenger.messages.getHeaders(message.id).catch(() => ({}));
  const delivered = await parseMailboxes([...(headers["delivered-to"] ?? []), ...(headers["x-original-to"] ?? [])]);
  return [...boxes, ...delivered].map(box => box.address.toLowerCase());
}

/**
 * The identity that should answer a message: of the given account, else of the
 * account that holds the message, the one that the message was addressed to;
 * else any addressed one; else that account's default; else the default.
 */
export async function identityForAnswer(message, account) {
  const accounts = await sendingAccounts();
  const home = account ?? accounts.find(candidate => candidate.id === message.folder?.accountId) ?? null;
  const addressed = await addressedTo(message);
  const pick = identities => addressed.map(address =>
    identities.find(identity => identity.email.toLowerCase() === address)).find(Boolean);
  return pick(home?.identities ?? [])
    ?? (account ? null : pick(await allIdentities()))
    ?? home?.identities[0]
    ?? defaultIdentity();
}
