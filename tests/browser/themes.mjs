// The page of themes, against the design's own figures.

import assert from "node:assert/strict";
import { copied, test } from "./harness.mjs";

const darkSets = ["base", "brightAccent", "negative", "warning", "positive", "announcement", "invertedDark",
  "invertedLight", "mutedAccent", "overMedia"];
const campaignSets = ["halvornBrand", "halvornBrandAlternate", "halvornBrand2", "halvornBrand2Alternate",
  "halvornBrand3", "halvornBrand3Alternate", "tierAurel", "tierAurelAlternate", "tierBexa", "tierBexaAlternate",
  "tierCorvin", "tierCorvinAlternate", "tierDalmor", "tierDalmorAlternate", "tierEstiva"];
const states = ["base", "highlight", "press"];
const backgrounds = [...["elevated.", "tinted.", "unsafeForSmallText.", ""].flatMap((named) =>
  states.map((state) => `background.${named}${state}`))];
const roles = ["base", "subdued", "brightAccent", "negative", "warning", "positive", "announcement"];
const foregrounds = ["text", "essential"].flatMap((group) => roles.map((name) => `${group}.${name}`));
const slots = [...backgrounds, ...foregrounds, "decorative.base", "decorative.subdued"];

// What the page says of each slot, by its path with its set.
const slotTexts = (page) => page.evaluate(() => {
  const texts = (row, selector) => [...row.querySelectorAll(selector)].map((element) => element.textContent);
  return Object.fromEntries([...document.querySelectorAll(".slot")].map((row) => {
    const [path, code, objectCode, hex, components] = texts(row, "button");
    return [row.id, { path, code, objectCode, hex, components, contrasts: texts(row, "p") }];
  }));
});

test("25 sets have a card and 28 slots each, in order, with the design's values", "themes.html", async (page) => {
  assert.deepEqual(await page.evaluate(() => [...document.querySelectorAll(".set")].map((set) => set.id)),
    [...darkSets, ...campaignSets]);
  const texts = await slotTexts(page);
  assert.deepEqual(Object.keys(texts),
    [...darkSets, ...campaignSets].flatMap((set) => slots.map((path) => `${set}.${path}`)));
  assert.ok(Object.entries(texts).every(([id, { path }]) => id.endsWith(`.${path}`)));
  const cards = await page.evaluate(() => Promise.all([...document.querySelectorAll(".set .card")].map(async (card) => {
    card.loading = "eager";
    await card.decode();
    return [card.naturalWidth, card.naturalHeight, card.clientWidth, card.clientHeight].join(" ");
  })));
  assert.deepEqual(cards, Array(25).fill("328 668 328 668"));
  for (const [id, hex, components] of [
    ["base.text.subdued", "#A7A7A7", "RGB 0.655 0.655 0.655"],
    ["base.background.elevated.highlight", "#2A2A2A", "RGB 0.165 0.165 0.165"],
    ["warning.background.press", "#C57100", "RGB 0.773 0.443 0.000"],
    ["announcement.decorative.subdued", "#2A86F3", "RGB 0.165 0.525 0.953"],
    ["invertedLight.essential.brightAccent", "#17A449", "RGB 0.090 0.643 0.286"],
    ["mutedAccent.background.tinted.highlight", "#FFFFFF21", "RGB 1.000 1.000 1.000, alpha 0.13"],
    ["overMedia.background.unsafeForSmallText.press", "#0000009C", "RGB 0.000 0.000 0.000, alpha 0.61"],
    ["halvornBrand.background.tinted.press", "#283EA3", "RGB 0.157 0.243 0.639"],
    ["halvornBrand.background.press", "#0C1331", "RGB 0.047 0.075 0.192"],
    ["tierBexaAlternate.text.brightAccent", "#FFC862", "RGB 1.000 0.784 0.384"],
    ["tierEstiva.decorative.subdued", "#A8E20F", "RGB 0.659 0.886 0.059"]]) {
    assert.deepEqual([texts[id].hex, texts[id].components], [hex, components], id);
  }
});

test("contrasts are those of the guidelines, and the poorest is the poorest", "themes.html", async (page) => {
  const texts = await slotTexts(page);
  const luminance = (color) => color.map((part) => (part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4))
    .reduce((sum, part, index) => sum + part * [0.2126, 0.7152, 0.0722][index], 0);
  const ratio = (a, b) => {
    const [dark, light] = [luminance(a), luminance(b)].sort((x, y) => x - y);
    return (light + 0.05) / (dark + 0.05);
  };
  const over = ([red, green, blue, alpha = 1], ground) =>
    [red, green, blue].map((part, index) => part * alpha + ground[index] * (1 - alpha));
  const level = (path, value) => {
    if (path.startsWith("essential.")) return value >= 3 ? "AA" : "fail";
    return value >= 7 ? "AAA" : value >= 4.5 ? "AA" : value >= 3 ? "AA large" : "fail";
  };
  const figure = (path, value) => `${(Math.floor(value * 100) / 100).toFixed(2)} ${level(path, value)}`;
  for (const set of [...darkSets, ...campaignSets]) {
    const color = (path) => texts[`${set}.${path}`].components.match(/[\d.]+/g).map(Number);
    const grounds = set === "overMedia" ? [[0, 0, 0], [1, 1, 1]] : [color("background.base")];
    const contrast = (front, back) => Math.min(...grounds.map((ground) => {
      const surface = over(color(back), ground);
      return ratio(over(color(front), surface), surface);
    }));
    for (const path of foregrounds) {
      const poorest = Math.min(...backgrounds.map((back) => contrast(path, back)));
      const [onBase, onPoorest] = texts[`${set}.${path}`].contrasts;
      assert.equal(onBase, `${figure(path, contrast(path, "background.base"))} on base`, `${set}.${path}`);
      const [, shown, where] = onPoorest.match(/^(.*) on (.*)$/);
      assert.equal(shown, figure(path, poorest), `${set}.${path}`);
      assert.ok(Math.abs(contrast(path, `background.${where}`) - poorest) < 1e-9, `${set}.${path} on ${where}`);
    }
    for (const path of backgrounds) {
      assert.deepEqual(texts[`${set}.${path}`].contrasts,
        [`${figure("text.base", contrast("text.base", path))} under text.base`]);
    }
    for (const path of ["decorative.base", "decorative.subdued"]) {
      const [shown] = figure(path, contrast(path, "background.base")).split(" ");
      assert.deepEqual(texts[`${set}.${path}`].contrasts, [`${shown} on base`]);
    }
  }
  const marked = await page.evaluate(() => [...document.querySelectorAll("b.fails")].map((mark) => mark.textContent));
  assert.ok(marked.length > 0 && marked.every((text) => / fail$/.test(text)), "what fails is said in words");
  assert.equal(await page.locator(".set p b:not(.fails)", { hasText: "fail" }).count(), 0);
});

test("names and values of a slot are copied whole", "themes.html#tierAurel.text.subdued", async (page) => {
  for (const [row, button, text] of [
    ["base.text.subdued", "text.subdued", "Brisel::Theme::dark().base().text().subdued()"],
    ["base.text.subdued", ".text().subdued()", "Brisel::Theme::dark().base().text().subdued()"],
    ["base.text.subdued", "->text()->subdued()", "VLMBriselColorTheme::dark()->base()->text()->subdued()"],
    ["base.text.subdued", "#A7A7A7", "#A7A7A7"],
    ["tierAurel.text.subdued", ".text().subdued()", "Brisel::Theme::ColorSet::Campaign::tierAurel().text().subdued()"],
    ["tierAurel.text.subdued", "->text()->subdued()",
      "VLMBriselColorTheme::campaign()->tierAurel()->text()->subdued()"],
    ["tierAurel", "VLMBriselColorTheme::campaign()->tierAurel()", "VLMBriselColorTheme::campaign()->tierAurel()"]]) {
    await page.evaluate(() => { document.querySelector(".toast").textContent = ""; });
    await page.locator(`[id="${row}"]`).getByRole("button", { name: button, exact: true }).click();
    await copied(page, text);
  }
});

test("arrows walk the slots, and Tab takes a set at a time", "themes.html", async (page) => {
  const focused = () => page.evaluate(() =>
    `${document.activeElement.closest("[id]").id}: ${document.activeElement.textContent.trim()}`);
  await page.locator("[id='base.background.elevated.base'] button").first().focus();
  await page.keyboard.press("ArrowDown");
  await page.keyboard.press("ArrowRight");
  assert.equal(await focused(), "base.background.elevated.highlight: .background().elevated().highlight()");
  await page.keyboard.press("Tab");
  assert.equal(await focused(), "brightAccent: Brisel::Theme::dark().brightAccent()");
});

test("a link to a set lands on its name; a narrow page links to all", "themes.html#tierAurel", async (page) => {
  const box = await page.locator("#tierAurel h3").boundingBox();
  assert.ok(box.y > 0 && box.y < 100, JSON.stringify(box));
  assert.deepEqual(await page.locator(".sets a").allTextContents(), [...darkSets, ...campaignSets]);
  await page.locator(".sets a", { hasText: /^overMedia$/ }).click();
  await page.waitForURL(/#overMedia$/);
}, { width: 360 });

test("search shows a slot with its swatch and its value", "index.html", async (page) => {
  await page.locator("#site-search").fill("overMedia.decorative.subdued");
  const option = page.locator("[role='option']").first();
  assert.equal(await option.textContent(), "Brisel::Theme::dark().overMedia().decorative().subdued()#FFFFFF21");
  await page.waitForFunction(() => document.querySelector("[role='option'] img").naturalWidth === 40);
  await option.click();
  await page.waitForURL(/themes\.html#overMedia\.decorative\.subdued$/);
});
