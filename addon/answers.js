/**
 * What goes back to the host for a call. The host ends the connection at a message of more than 4 MiB, and passes over
 * one of more than 131,072 values: an answer like that fails instead, so that the caller hears of it.
 */

import { describe, MailError } from "./errors.js";

const MOST_BYTES = 4 * 1024 * 1024 - 1024;
const MOST_VALUES = 128 * 1024 - 16;
const MOST_WORDS = 500;

/** How many values the host counts at most; what is empty counts twice with it. */
function valuesIn(value) {
  if (value === null || typeof value !== "object") {
    return 1;
  }
  return 1 + (Object.values(value).reduce((sum, each) => sum + valuesIn(each), 0) || 1);
}

function passes(answer) {
  return valuesIn(answer) <= MOST_VALUES && new TextEncoder().encode(JSON.stringify(answer)).length <= MOST_BYTES;
}

/** The words, without what is too long for a person to read; no character is cut in two. */
function cut(words) {
  return words.length <= MOST_WORDS ? words : `${words.slice(0, MOST_WORDS - 1).replace(/[\ud800-\udbff]$/, "")}…`;
}

export function failure(call, error) {
  const { name, message } = describe(error);
  return { answer: call, error: { name, message: cut(message) } };
}

export function success(call, result) {
  const answer = { answer: call, result: result ?? null };
  return passes(answer) ? answer : failure(call, new MailError("Failed", "The answer is too long to be passed on."));
}
