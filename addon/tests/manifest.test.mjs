import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";

const read = path => readFileSync(new URL(path, import.meta.url), "utf8");
const manifest = JSON.parse(read("../manifest.json"));

test("every permission has its reason, and every reason a permission", () => {
  const explained = [...read("../README.md").matchAll(/^\| `([\w.]+)` \|/gm)].map(([, name]) => name);
  assert.deepEqual(explained.sort(), manifest.permissions.toSorted());
});

test("nothing is asked for later or of web sites", () => {
  assert.deepEqual(["optional_permissions", "host_permissions", "optional_host_permissions", "content_scripts",
    "web_accessible_resources", "experiment_apis"].filter(name => name in manifest), []);
});

test("only the add-on's own scripts run, and nothing is loaded from anywhere", () => {
  assert.deepEqual(manifest.content_security_policy, { extension_pages: "default-src 'none'; script-src 'self'" });
});
