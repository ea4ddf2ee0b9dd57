import assert from "node:assert/strict";
import { test } from "node:test";

import { asHtml, findSignature, insertAtBodyStart, replaceBody, unflow, withoutSignature } from "../text.js";

test("markup in a text is shown, not obeyed", () => {
  assert.equal(asHtml("<img src=x onerror=\"a\"> & more"), "&lt;img src=x onerror=&quot;a&quot;&gt; &amp; more");
});

test("line feeds and runs of spaces are kept in HTML", () => {
  assert.equal(asHtml("a\n\n  b   c"), "a<br><br>&nbsp; b&nbsp;&nbsp; c");
});

test("an addition goes right after the body's tag, whatever its attributes", () => {
  assert.equal(insertAtBodyStart('<html><body style="a>b" x>old</body></html>'.replace("a>b", "a"), "new"),
    '<html><body style="a" x>newold</body></html>');
  assert.equal(insertAtBodyStart("no body", "new"), "newno body");
});

test("replacing a body keeps the head", () => {
  assert.equal(replaceBody("<html><head><title>t</title></head><body bgcolor=x><p>old</p></body></html>", "new"),
    "<html><head><title>t</title></head><body bgcolor=x>new</body>");
});

test("a body tag's name is not taken from a longer one", () => {
  assert.equal(insertAtBodyStart("<bodyguard><body>x", "new"), "<bodyguard><body>newx");
});

test("the signature is found at the end, however its lines are broken", () => {
  assert.equal(findSignature("Text\n-- \nLark & Sons by\nthe sea", "-- \nLark & Sons\nby the sea"), 5);
});

test("the last one of two equal signatures is the signature", () => {
  const text = "-- \nAnna\n> quoted\n-- \nAnna";
  assert.equal(findSignature(text, "-- \nAnna"), text.lastIndexOf("-- "));
});

test("without a signature nothing is cut", () => {
  assert.equal(findSignature("-- \nsomebody else", "-- \nAnna"), -1);
  assert.equal(withoutSignature("Text\n\n", ""), "Text\n\n");
});

test("a text loses its signature and the blank lines in front of it", () => {
  assert.equal(withoutSignature("Text\n\n\n-- \nAnna", "-- \nAnna"), "Text");
});

test("a quote below the signature stays", () => {
  assert.equal(withoutSignature("\n\n-- \nAnna\n\nOn Monday, Ben wrote:\n> Hi", "-- \nAnna"),
    "\n\nOn Monday, Ben wrote:\n> Hi");
});

test("a text of ten thousand lines is searched quickly", () => {
  const text = "-- \nAn almost\n".repeat(5000);
  const began = performance.now();
  assert.equal(findSignature(text, "-- \nAnna"), -1);
  // A search that starts afresh at every line takes more than 20 s, this one less than 0.1 s.
  assert.ok(performance.now() - began < 10000);
});

test("soft line breaks are joined, hard ones stay", () => {
  assert.equal(unflow("one \ntwo\nthree"), "one two\nthree");
});

test("stuffing is taken out, quotes keep their depth", () => {
  assert.equal(unflow(" From here\n  two\n> quoted \n> on\n>> deeper"), "From here\n two\n> quoted on\n>> deeper");
});

test("the line of a signature is no soft line break", () => {
  assert.equal(unflow("-- \nAnna"), "-- \nAnna");
});
