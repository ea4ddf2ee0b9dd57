/**
 * A failed call: `name` is the last word of an org.kest.Mail1.Error name, the
 * message is shown to people as it stands.
 */
export class MailError extends Error {
  constructor(name, message) {
    super(message);
    this.name = name;
  }
}

/** What anything thrown says. */
export function wordsOf(error) {
  return error?.message ?? String(error);
}

/** Turns anything thrown into what travels to the host. */
export function describe(error) {
  if (error instanceof MailError) {
    return { name: error.name, message: error.message };
  }
  return { name: "Failed", message: `Thunderbird says: ${wordsOf(error)}` };
}
