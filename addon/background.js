/** Starts with Thunderbird and answers the host for as long as it runs. */

import { failure, success } from "./answers.js";
import { Files } from "./attachments.js";
import { Connection } from "./connection.js";
import * as outgoing from "./outgoing.js";
import { carryOut } from "./vocabulary.js";
import * as windows from "./windows.js";

async function hello() {
  const { name, version } = await messenger.runtime.getBrowserInfo();
  return { version: messenger.runtime.getManifest().version, name, applicationVersion: version };
}

/** The numbers of the files that travel with a call. */
function filesOf(values) {
  const attachments = Array.isArray(values?.attachments) ? values.attachments : [];
  return [values?.file, ...attachments.map(attachment => attachment?.[1])].map(reference => reference?.file)
    .filter(number => number !== undefined);
}

/** Talks with one host. What it numbers, calls and files, is nothing to the next one. */
function talk(send) {
  const files = new Files();

  async function answer(call) {
    try {
      send(success(call.call, await carryOut(call, files)));
    } catch (error) {
      send(failure(call.call, error));
    } finally {
      // A call that failed early has not taken its files out.
      for (const number of filesOf(call.arguments)) {
        files.drop(number);
      }
    }
  }

  function received(message) {
    if (message.chunk !== undefined) {
      if (files.takeChunk(message)) {
        send({ taken: message.chunk });
      }
    } else if (message.drop !== undefined) {
      files.drop(message.drop);
    } else if (message.call !== undefined) {
      answer(message);
    }
  }

  return {
    opened: () => windows.announceFocus(focused => send({ focused })),
    message: received,
    closed: () => files.dropAll(),
  };
}

const connection = new Connection({ hello, talk });

// Listeners must be there before the first turn of the event loop ends. The one for the start is what makes
// Thunderbird run this page without waiting for another event.
messenger.runtime.onStartup.addListener(() => connection.open());
messenger.runtime.onInstalled.addListener(() => connection.open());
// Kest may have been installed meanwhile.
messenger.windows.onFocusChanged.addListener(() => connection.open());
windows.listen();
outgoing.listen();
connection.open();
