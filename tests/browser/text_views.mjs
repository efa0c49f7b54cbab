// The page of text views.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { copied, site, test } from "./harness.mjs";

// From which column to which a picture shows light text.
const inked = (page, source) => page.evaluate(async (data) => {
  const image = new Image();
  image.src = `data:image/png;base64,${data}`;
  await image.decode();
  const { naturalWidth: width, naturalHeight: height } = image;
  const context = Object.assign(document.createElement("canvas"), { width, height }).getContext("2d");
  context.drawImage(image, 0, 0);
  const { data: pixels } = context.getImageData(0, 0, width, height);
  const columns = [...Array(width).keys()].filter((x) =>
    [...Array(height).keys()].some((y) => pixels[4 * (y * width + x)] > 128));
  return { width, first: columns[0], last: columns.at(-1) };
}, readFileSync(join(site, source), "base64"));

test("each kind of view stands there under the names of both interfaces", "text-views.html", async (page) => {
  const titles = await page.evaluate(() => [...document.querySelectorAll("h2")].map((head) => head.textContent));
  assert.deepEqual(titles, ["Label", "Text field", "Text view", "Button", "Legacy label", "Fitting", "After a change"]);
  const specimens = (id) => page.evaluate((head) => [...document.querySelectorAll(`[aria-labelledby='${head}'] .shape p`)]
    .map((title) => title.textContent), id);
  assert.equal((await specimens("label")).length, 4);
  assert.deepEqual(await specimens("text-field"), ["With text", "With a placeholder"]);
  assert.equal((await specimens("text-view")).length, 1);
  assert.deepEqual((await specimens("button")).map((title) => title.split(":")[0]),
    ["Normal", "Highlighted", "Disabled", "Selected", "Focused"]);
  assert.equal((await specimens("legacy-label")).length, 3);
  for (const [receiver, style] of [["label", "ballad"], ["textField", "ballad"], ["textView", "ballad"],
    ["button", "balladBold"]]) {
    for (const call of [`Brisel::apply(*${receiver}, Brisel::TypeStyle::${style}()`,
      `briselSwift_applyStyle(*${receiver}, VLMBriselTypeStyle::${style}()`]) {
      assert.ok(await page.locator("button", { hasText: call }).count() > 0, call);
    }
  }
  const call = "Brisel::applyPlaceholder(*textField, Brisel::TypeStyle::ballad(), category)";
  await page.getByRole("button", { name: call }).click();
  await copied(page, call);
});

test("a title is fitted in three styles, six scripts and into one and two lines", "text-views.html", async (page) => {
  const outcomes = () => page.evaluate(() => [...document.querySelectorAll(".fitted")].map((style) =>
    [style.id, [...style.querySelectorAll("dl > div")].map((row) => [row.querySelector("dt").textContent,
      ...[...row.querySelectorAll("figcaption")].map((caption) => caption.textContent)])]));
  const atLarge = await outcomes();
  assert.deepEqual(atLarge.map(([id]) => id), ["fitted-bass", "fitted-forte", "fitted-brio"]);
  const sizes = { "fitted-bass": [56, 0.3], "fitted-forte": [48, 0.35], "fitted-brio": [40, 0.4] };
  for (const [id, rows] of atLarge) {
    assert.deepEqual(rows.map(([script]) => script), ["Latin", "Arabic", "Hebrew", "Cyrillic", "Greek", "Devanagari"]);
    const [before, factor] = sizes[id];
    for (const [script, ...lines] of rows) {
      assert.equal(lines.length, 2);
      for (const [index, text] of lines.entries()) {
        const [, from, to, fits] = /^(?:One line|Two lines) (\d+)(?: → (\d+))? pt, (fits|does not fit)$/.exec(text);
        assert.equal(Number(from), before, `${id} ${script}`);
        assert.equal(text.startsWith("One"), index === 0);
        // Whole points, to the first that is no larger than the factor allows.
        assert.ok(Number(to ?? from) >= Math.floor(before * factor), text);
        if (fits !== "fits") assert.ok(Number(to) <= before * factor, text);
      }
      // More lines leave more room.
      const after = lines.map((text) => Number(/(\d+) pt/.exec(text)[1]));
      assert.ok(after[1] >= after[0], `${id} ${script} ${after}`);
    }
  }
  assert.ok(atLarge.flatMap(([, rows]) => rows.flat()).some((text) => text.endsWith(", fits")));
  await page.locator("#text-size").focus();
  await page.keyboard.press("End");
  const atLargest = await outcomes();
  assert.match(atLargest[0][1][0][1], /^One line 63\.2 → /);
  assert.ok(atLargest.flatMap(([, rows]) => rows.flat()).some((text) => text.endsWith("does not fit")));
});

test("text from right to left stands right", "text-views.html", async (page) => {
  for (const [language, lines, right] of [["en", 1, false], ["ar", 1, true], ["he", 1, true], ["ar", 2, true],
    ["he", 2, true]]) {
    const { width, first, last } = await inked(page, `pictures/text-views/fitted-brio-${language}-${lines}-large.png`);
    assert.equal(width, 280);
    const [left, rightGap] = [first, width - 1 - last];
    assert.ok(right ? rightGap <= 4 && left >= rightGap : left <= 4 && rightGap >= left,
      `${language} in ${lines}: ${left} points free on the left, ${rightGap} on the right`);
  }
});

test("what is subscribed follows a change and what is not stays", "text-views.html", async (page) => {
  const sources = (id) => page.evaluate((name) =>
    [...document.querySelectorAll(`#${name} img`)].map((image) => image.getAttribute("src")), id);
  const before = { subscribed: await sources("subscribed"), once: await sources("applied-once") };
  await page.locator("#text-size").focus();
  await page.keyboard.press("End");
  const after = { subscribed: await sources("subscribed"), once: await sources("applied-once") };
  assert.equal(before.subscribed.length, 2);
  assert.equal(before.once.length, 2);
  assert.ok(before.subscribed.every((source, index) => source !== after.subscribed[index]));
  assert.deepEqual(after.once, before.once);
  const bytes = (name) => readFileSync(join(site, `pictures/text-views/${name}.png`)).toString("base64");
  for (const view of ["label", "text-view"]) {
    // Bold before; after a change what it would be had it never been set in bold.
    assert.notEqual(bytes(`restyled-${view}-before`), bytes(`restyled-${view}-large`));
    for (const category of ["large", "extraSmall", "accessibilityExtraLarge"]) {
      assert.equal(bytes(`restyled-${view}-${category}`), bytes(`subscribed-${view}-${category}`));
    }
    assert.equal(bytes(`once-${view}`), bytes(`subscribed-${view}-large`));
  }
});

test("a link to a kind of view marks its head", "text-views.html#text-view", async (page) => {
  const { top, outline, other } = await page.evaluate(() => ({
    top: document.querySelector("#text-view").getBoundingClientRect().top,
    outline: getComputedStyle(document.querySelector("#text-view")).outlineStyle,
    other: getComputedStyle(document.querySelector("#label")).outlineStyle }));
  assert.ok(top >= 0 && top < 450, `it stands at ${top}`);
  assert.equal(outline, "solid");
  assert.equal(other, "none");
});

test("every call is reached by the Tab key", "text-views.html", async (page) => {
  const reached = await page.evaluate(() => {
    const buttons = [...document.querySelectorAll("main button")];
    return { all: buttons.length, reachable: buttons.filter((button) => button.tabIndex === 0).length };
  });
  assert.equal(reached.reachable, reached.all);
  assert.ok(reached.all > 20);
});
