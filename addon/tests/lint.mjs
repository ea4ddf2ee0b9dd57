/**
 * Runs the add-on linter on a built add-on: no errors, and no warnings but that
 * it does not know Thunderbird's own permissions.
 */

import { execFileSync } from "node:child_process";
import { fileURLToPath } from "node:url";

const linter = fileURLToPath(new URL("../node_modules/addons-linter/bin/addons-linter", import.meta.url));
const thunderbirds = /accountsRead|messagesRead|messagesDelete|"compose"|compose\.send/;

function lint(addon) {
  try {
    return execFileSync(process.execPath, [linter, "--self-hosted", "--output", "json", addon], { encoding: "utf8" });
  } catch (problem) {
    return problem.stdout || Promise.reject(problem);
  }
}

const found = JSON.parse(await lint(process.argv[2]));
const unexpected = [...found.errors, ...found.notices,
  ...found.warnings.filter(warning => warning.code !== "MANIFEST_PERMISSIONS" || !thunderbirds.test(warning.message))];
for (const { code, message, file } of unexpected) {
  console.error(`${code} ${file ?? ""}: ${message}`);
}
console.log(`${found.errors.length} errors, ${found.warnings.length} warnings, ${unexpected.length} unexpected`);
process.exitCode = unexpected.length ? 1 : 0;
