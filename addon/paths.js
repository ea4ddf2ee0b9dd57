/** Object paths of the bus and the ids behind them. */

import { MailError } from "./errors.js";

const ROOT = "/org/kest/Mail1";

// One of ours is shorter; a longer one would fill the screen of whoever reads it.
const MOST_QUOTED = 100;

export const NO_OBJECT = "/";

export function messagePath(id) {
  return `${ROOT}/message/${id}`;
}

export function outgoingPath(id) {
  return `${ROOT}/outgoing/${id}`;
}

/** The number at the end of an object's path of that kind ("message", "outgoing"). */
export function idFromPath(path, kind) {
  const match = new RegExp(`^${ROOT}/${kind}/(\\d{1,15})$`).exec(path);
  if (!match) {
    throw new MailError("NoSuchObject",
      path?.length > MOST_QUOTED ? "There is no message of that path." : `There is no message “${path}”.`);
  }
  return Number(match[1]);
}
