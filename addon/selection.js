/** What is selected in the window used last. */

import { messagePath } from "./paths.js";
import { viewer } from "./windows.js";

async function allPages(page) {
  const messages = [...page.messages];
  while (page.id) {
    page = await messenger.messages.continueList(page.id);
    messages.push(...page.messages);
  }
  return messages;
}

async function selectedIn(tab) {
  if (tab?.type === "mail") {
    return allPages(await messenger.mailTabs.getSelectedMessages(tab.id));
  }
  if (tab?.type === "messageDisplay") {
    return allPages(await messenger.messageDisplay.getDisplayedMessages(tab.id));
  }
  return [];
}

/** Application.Selection */
export async function selection() {
  const window = await viewer();
  if (!window) {
    return [];
  }
  const [tab] = await messenger.tabs.query({ active: true, windowId: window.id });
  return (await selectedIn(tab)).map(message => messagePath(message.id));
}
