/** Names and addresses: reading them, writing them, telling one's own. */

/** "Name <address>", the name quoted where it must be; the bare address without a name. */
export function formatMailbox(name, address) {
  if (!name) {
    return address;
  }
  const quoted = /[^\w\s!#$%&'*+\-/=?^`{|}~\u0080-\u{10ffff}]/u.test(name)
    ? `"${name.replace(/["\\]/g, "\\$&")}"`
    : name;
  return `${quoted} <${address}>`;
}

/** The same for people to read: never quoted. */
export function displayMailbox(name, address) {
  return name ? `${name} <${address}>` : address;
}

/** The mailboxes in a header's text or list of texts, as {name, address}. */
export async function parseMailboxes(texts) {
  const found = [];
  for (const text of [texts ?? []].flat()) {
    for (const box of await messenger.messengerUtilities.parseMailboxString(text)) {
      found.push({ name: box.name ?? "", address: box.email ?? "" });
    }
  }
  return found;
}

/** The address in "Name <address>" or "address", in lower case. */
export function bareAddress(text) {
  const match = /<([^<>]*)>\s*$/.exec(text);
  return (match ? match[1] : text).trim().toLowerCase();
}

/** The list without the mailboxes whose address is one of `own` (lower case). */
export function withoutOwn(mailboxes, own) {
  return mailboxes.filter(box => !own.has(box.address.toLowerCase()));
}
