/** What must not be quoted in a message that is not encrypted. */

import { MailError } from "./errors.js";

// RFC 3156 and RFC 8551. The type of the latter stands for what is only signed or packed, too.
const ENCRYPTED =
  /^\s*(multipart\/encrypted|application\/(x-)?pkcs7-mime(?!.*smime-type\s*=\s*"?(signed|compressed|certs)))\s*(;|$)/is;

/** Whether a message in a folder is. Thunderbird's reply may say so only some time after its window has opened. */
export async function isEncrypted(message) {
  const headers = await messenger.messages.getHeaders(message.id).catch(() => ({}));
  return ENCRYPTED.test(headers["content-type"]?.[0] ?? "");
}

/** Whether what a compose window holds goes out encrypted; signing does not count. */
export function isToBeEncrypted(details) {
  return Boolean(details.selectedEncryptionTechnology?.encryptBody);
}

export function refuseInClear() {
  throw new MailError("Failed",
    "This reply must be encrypted, and “Direct” cannot do that. Choose “Script” as the mail back end in Preferences.");
}
