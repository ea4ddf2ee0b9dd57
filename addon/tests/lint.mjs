/**
 * Runs the add-on linter on a built add-on; it must find nothing at all.
 *
 * The linter brings Firefox's schemas, so it would warn of every permission of
 * Thunderbird's. It is told those which the installed Thunderbird's own schemas
 * name, and goes on to warn of any other.
 */

import { execFileSync } from "node:child_process";
import { readFileSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { fileURLToPath } from "node:url";

const here = path => fileURLToPath(new URL(path, import.meta.url));
const knownToFirefox = '"OptionalPermission":{"anyOf":[{"type":"string","enum":["nativeMessaging"';

/** The linter's program with Thunderbird's permissions among those that it knows. */
function taughtLinter() {
  const own = JSON.parse(execFileSync("/usr/bin/python3", [here("thunderbird_permissions.py")], { encoding: "utf8" }));
  const pieces = readFileSync(here("../node_modules/addons-linter/dist/addons-linter.js"), "utf8").split(knownToFirefox);
  if (pieces.length !== 2 || !own.length) {
    throw new Error("This linter keeps its permissions elsewhere; see where, and mend this script.");
  }
  const taught = here("../node_modules/addons-linter/dist/addons-linter-thunderbird.js");
  writeFileSync(taught, pieces.join(`${knownToFirefox},${JSON.stringify(own).slice(1, -1)}`));
  return taught;
}

async function lint(addon) {
  globalThis.nodeRequire = createRequire(import.meta.url);
  const linter = globalThis.nodeRequire(taughtLinter());
  return linter.createInstance({
    config: { _: [addon], logLevel: "fatal", output: "json", selfHosted: true, minManifestVersion: 3,
      maxManifestVersion: 3, enableDataCollectionPermissions: true, stack: true },
    runAsBinary: false,
  }).run();
}

const found = await lint(process.argv[2]);
const kinds = ["errors", "notices", "warnings"];
for (const { code, message, file } of kinds.flatMap(kind => found[kind])) {
  console.error(`${code} ${file ?? ""}: ${message}`);
}
console.log(kinds.map(kind => `${found[kind].length} ${kind}`).join(", "));
process.exitCode = kinds.some(kind => found[kind].length) ? 1 : 0;
