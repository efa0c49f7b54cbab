// The page of the reference.

import assert from "node:assert/strict";
import { statSync } from "node:fs";
import { join } from "node:path";
import { copied, emptied, site, test } from "./harness.mjs";

const path = "reference.html";
const shown = (page) => page.evaluate(() =>
  [...document.querySelectorAll(".entry:not([hidden])")].map((entry) => entry.id));
const tiles = (page) => page.evaluate(() =>
  [...document.querySelectorAll(".catalogue:not([hidden]) li:not([hidden]) a")].map((link) => link.getAttribute("href")));

test("the reference is light, and closed catalogues do not drown it", path, async (page) => {
  assert.ok(statSync(join(site, path)).size < 600_000);
  assert.equal(await page.locator(".catalogue[open]").count(), 0);
  const page_ = await page.evaluate(() => ({ links: document.querySelectorAll(".catalogue a[href^='icons.html#']").length,
    empty: [...document.querySelectorAll(".entry > :last-child, .catalogue li > :last-child")]
      .filter((cell) => cell.textContent === "").length }));
  assert.ok(page_.links >= 328);
  assert.equal(page_.empty, 0, "entries of which nothing is said");
});

test("the reference is filtered by keyboard alone, by names and by what is said of them", path, async (page) => {
  await page.locator("#reference-filter").focus();
  await page.keyboard.type("with font size");
  assert.ok((await shown(page)).includes("TypeStyle-withFontSize"));
  assert.ok((await shown(page)).every((id) => /[fF]ontSize/.test(id)), String(await shown(page)));
  assert.match(await page.locator("#reference-count").textContent(), /^\d+ of \d+ entries$/);
  await page.keyboard.press("Tab");  // past the header's line to the first entry that is left
  while (await page.evaluate(() => !document.activeElement.closest(".entry"))) await page.keyboard.press("Tab");
  assert.equal(await page.evaluate(() => document.activeElement.textContent), "Brisel::TypeStyle::withFontSize");
  await page.keyboard.press("ArrowDown");
  assert.notEqual(await page.evaluate(() => document.activeElement.closest(".entry").id), "TypeStyle-withFontSize");
  assert.ok(await page.evaluate(() => !document.activeElement.closest("[hidden]")));
  await page.locator("#reference-filter").fill("nothing is called so");
  assert.deepEqual(await shown(page), []);
  assert.ok(await page.locator(".none").isVisible());
  await page.locator("#reference-filter").press("Escape");
  assert.ok((await shown(page)).length > 300);
  assert.ok(!await page.locator(".none").isVisible());
  assert.equal(await page.locator(".catalogue[open]").count(), 0);
});

test("the filter opens catalogues at what it finds", path, async (page) => {
  await page.locator("#reference-filter").fill("VLMBriselColors::gray7");
  assert.deepEqual(await tiles(page), ["colours.html#gray7", "colours.html#gray70"]);
  assert.ok(await page.locator("a[href='colours.html#gray7']").isVisible());
  await page.locator("#reference-filter").fill("VLMBriselIconHeartActive");
  assert.deepEqual(await tiles(page), ["icons.html#heartActive"]);
});

test("names and headers of the reference are copied", path, async (page) => {
  const entry = page.locator("#TypeStyle-withFontSize");
  for (const name of ["Brisel::TypeStyle::withFontSize", "VLMBriselTypeStyle::withFontSize"]) {
    await entry.getByRole("button", { name, exact: true }).click();
    await copied(page, name);
  }
  await page.getByRole("button", { name: "brisel/typography/type_style.h", exact: true }).first().click();
  await copied(page, '#include "brisel/typography/type_style.h"');
});

test("a link to an entry that is filtered out shows it", path, async (page) => {
  await page.locator("#reference-filter").fill("opacity");
  await page.keyboard.press("/");
  await page.keyboard.type("VLMBriselTypeStyle::withFontSize");
  await page.keyboard.press("Enter");
  await emptied(page, "#reference-filter");
  assert.equal(await page.evaluate(() => location.hash), "#TypeStyle-withFontSize");
  const box = await page.locator("#TypeStyle-withFontSize").boundingBox();
  assert.ok(box && box.y > 0 && box.y + box.height <= 900, JSON.stringify(box));
});

test("search finds every entry of the reference once", path, async (page) => {
  const { missing, twice } = await page.evaluate(() => {
    const found = briselNames.flatMap(([, , , , ...names]) => names.map((name) => name.replace(/\(\)$/, "")));
    const counts = new Map();
    for (const name of found) counts.set(name, (counts.get(name) ?? 0) + 1);
    const names = [...document.querySelectorAll(".entry > :nth-child(-n + 2) > button:first-child")]
      .map((button) => button.textContent);
    const own = briselNames.filter(([, file]) => file === "reference.html").flatMap(([, , , , ...all]) => all);
    return { missing: names.filter((name) => !counts.has(name)), twice: own.filter((name) => counts.get(name) > 1) };
  });
  assert.deepEqual(missing, []);
  assert.deepEqual(twice, []);
});

for (const width of [360, 640, 1000, 1280, 1920]) {
  test(`the columns of the reference are aligned at ${width} pixels`, path, async (page) => {
    const { lefts, tooWide } = await page.evaluate(() => ({
      lefts: [1, 2, 3].map((column) => [...new Set([...document.querySelectorAll(`.entry > :nth-child(${column}):not(:empty)`)]
        .map((cell) => Math.round(cell.getBoundingClientRect().left)))]),
      tooWide: [...document.querySelectorAll(".entry *")].filter((part) =>
        part.getBoundingClientRect().right > part.closest(".entry").getBoundingClientRect().right + 1).length }));
    assert.deepEqual(lefts.map((each) => each.length), [1, 1, 1]);
    assert.equal(new Set(lefts.flat()).size, width === 1000 ? 2 : width < 1000 ? 1 : width < 1280 ? 2 : 3);
    assert.equal(tooWide, 0);
    assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth), "the page is too wide");
  }, { width });
}
