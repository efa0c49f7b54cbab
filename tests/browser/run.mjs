// Opens the style guide in Chromium, from its files, and uses it as its readers do.
// Usage: node tests/browser/run.mjs [directory of the style guide] [browsers at once]
// Needs `npm ci --prefix tests/browser` and Chromium (see chromium.mjs).

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { createRequire } from "node:module";
import { pathToFileURL } from "node:url";
import { copied, emptied, run, scrollThrough, site, stopClock, test } from "./harness.mjs";
import "./text_views.mjs";
import "./themes.mjs";
import "./tokens.mjs";
import "./curves.mjs";
import "./reference.mjs";

const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
const widths = [360, 1440, 1920];
// Rows whose markup differs in texts and numbers alone are all the same to axe: one of each shape stays, which spares
// it hundreds.
const removeEqualRows = (page) => page.evaluate(() => {
  const shape = (element) => [element.tagName,
    ...element.getAttributeNames().map((name) => `${name} ${element.getAttribute(name) === ""}`).sort(),
    ...["class", "role", "tabindex"].map((name) => element.getAttribute(name)),
    element.textContent.trim() === "", ...[...element.querySelectorAll(":scope > :not(wbr)")].map(shape)].join(" ");
  for (const grid of document.querySelectorAll("[role='grid']")) {
    const shapes = new Set();
    for (const row of grid.querySelectorAll("[role='row']")) {
      const own = shape(row);
      if (shapes.has(own)) row.remove();
      shapes.add(own);
    }
  }
});
const pages = ["index.html", "colours.html", "type.html", "text-views.html", "icons.html", "shapes.html", "themes.html",
  "tokens.html", "curves.html", "reference.html"];

for (const path of pages) {
  for (const width of widths) {
    test(`${path} at ${width} pixels loads every picture, shifts nothing and fits`, path, async (page) => {
      await scrollThrough(page);
      const broken = await page.evaluate(() =>
        [...document.images].filter((image) => image.naturalWidth === 0).map((image) => image.currentSrc));
      assert.deepEqual(broken, []);
      const wrong = await page.evaluate(() => [...document.images]
        .filter((image) => image.naturalWidth !== image.width && getComputedStyle(image).objectFit !== "none" &&
          image.getAttribute("width") !== String(image.naturalWidth))
        .map((image) => image.currentSrc));
      assert.deepEqual(wrong, [], "pictures whose size differs from what the page says");
      assert.ok(await page.evaluate(() => window.shift) < 0.001, "the layout shifted");
      assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth), "the page is too wide");
    }, { width, height: 800 });
  }
  for (const width of [360, 1440]) {
    test(`axe finds nothing on ${path} at ${width} pixels`, path, async (page) => {
      await page.evaluate(axe);
      // Colour sets are all of the same markup: three stand for 25, which would take axe a minute.
      await page.evaluate(() => {
        for (const set of document.querySelectorAll(".set")) {
          if (!["base", "overMedia", "halvornBrandAlternate"].includes(set.id)) set.remove();
        }
      });
      await removeEqualRows(page);
      // Without `preload`, which would fetch the style sheets: pages from files may not. What passes is counted by rules,
      // which spares axe the address of each element that does.
      const { violations, passed } = await page.evaluate(async () => {
        const results = await window.axe.run({ preload: false, resultTypes: ["violations"] });
        return { violations: results.violations.map(({ id, nodes }) => `${id}: ${nodes.length} × ${nodes[0].html}`),
          passed: results.passes.length };
      });
      assert.ok(passed > 10, "axe did not run");
      assert.deepEqual(violations, []);
    }, { width });
  }
  test(`${path} is set in the library's own faces`, path, async (page) => {
    await page.evaluate(() => document.fonts.ready);
    const faces = await page.evaluate(() =>
      [...document.fonts].filter((face) => face.status === "loaded").map((face) => `${face.family} ${face.weight}`));
    assert.deepEqual(faces.map((face) => face.replaceAll('"', "")).sort(),
      ["Tondal 400", "Tondal 700", "TondalTitle 700"]);
  });
}

test("a page shows once it is read whole, however soon its faces come", "type.html", async (page) => {
  await page.addInitScript(() => {
    FontFace.prototype.load = () => Promise.resolve();
    new MutationObserver(() => {
      if (!document.documentElement.classList.contains("waiting")) window.shownAt ??= document.readyState;
    }).observe(document, { attributes: true, attributeFilter: ["class"], subtree: true });
  });
  await page.reload();
  assert.notEqual(await page.evaluate(() => window.shownAt), undefined);
  assert.notEqual(await page.evaluate(() => window.shownAt), "loading");
});

test("a page shows without its faces too", "type.html", async (page) => {
  await page.addInitScript(() => { FontFace.prototype.load = () => new Promise(() => {}); });
  await stopClock(page);
  await page.reload();
  assert.equal(await page.locator("html.waiting").count(), 1);
  await page.clock.fastForward("20:00");
  assert.equal(await page.locator("html.waiting").count(), 0);
});

for (const path of ["index.html", "type.html", "text-views.html"]) {
  test(`the text-size control of ${path} changes specimens and figure`, path, async (page) => {
    const specimens = () => page.evaluate(() =>
      [...document.querySelectorAll("img[data-sizes]")].map((image) => `${image.getAttribute("src")} ${image.srcset}`));
    const before = await specimens();
    assert.ok(before.length > 0 && before.every((source) => source.includes("-large")));
    assert.equal(await page.locator(".text-size output").textContent(), "largeBallad 16 pt");
    await page.locator("#text-size").focus();
    await page.keyboard.press("End");
    assert.equal(await page.locator(".text-size output").textContent(),
      "accessibilityExtraExtraExtraLargeBallad 38.8 pt");
    assert.match(await page.locator("#text-size").getAttribute("aria-valuetext"), /accessibilityExtraExtraExtraLarge/);
    const after = await specimens();
    // Nothing grows any more beyond that size.
    assert.ok(after.every((source, index) => source !== before[index] && source.includes("-accessibilityExtraLarge")));
    await page.keyboard.press("Home");
    assert.equal(await page.locator(".text-size output").textContent(), "extraSmallBallad 13 pt");
    await scrollThrough(page);
    assert.ok(await page.evaluate(() => [...document.images].every((image) => image.naturalWidth > 0)));
    assert.ok(await page.evaluate(() => [...document.querySelectorAll("img[data-sizes]")].every((image) =>
      image.naturalWidth === Number(image.getAttribute("width")) &&
      image.naturalHeight === Number(image.getAttribute("height")))), "a specimen has another size than the page says");
  });
}

test("each step of the control is one of the twelve categories", "type.html", async (page) => {
  const names = [];
  await page.locator("#text-size").focus();
  await page.keyboard.press("Home");
  for (let step = 0; step < 12; step += 1) {
    names.push(await page.locator("#category").textContent());
    await page.keyboard.press("ArrowRight");
  }
  assert.deepEqual(names, ["extraSmall", "small", "medium", "large", "extraLarge", "extraExtraLarge",
    "extraExtraExtraLarge", "accessibilityMedium", "accessibilityLarge", "accessibilityExtraLarge",
    "accessibilityExtraExtraLarge", "accessibilityExtraExtraExtraLarge"]);
});

test("the size table is exact and follows the control", "type.html", async (page) => {
  const row = page.locator("tbody tr", { has: page.locator("th", { hasText: /^ballad$/ }) }).locator("td");
  assert.deepEqual(await row.allTextContents(), ["13", "14.001999999999999", "15.001000000000001", "16", "17.998",
    "19.996000000000002", "22", "27.599999999999998", "33.199999999999996", "38.800000000000004",
    "38.800000000000004", "38.800000000000004"]);
  assert.equal(await page.locator("tbody tr").count(), 19);
  assert.equal(await page.locator("tbody tr").first().locator(".current").textContent(), "16");
});

test("there are 312 swatches and 19 styles", "colours.html", async (page) => {
  assert.equal(await page.locator(".swatch").count(), 312);
  await page.goto(pathToFileURL(join(site, "type.html")).href);
  assert.equal(await page.locator(".style").count(), 19);
  assert.equal(await page.locator(".scripts img").count(), 12);
});

test("search works by keyboard alone and copies", "colours.html", async (page) => {
  await page.keyboard.press("/");
  assert.equal(await page.evaluate(() => document.activeElement.id), "site-search");
  await page.keyboard.type("fluorescent");
  const options = await page.locator("[role='option']").allTextContents();
  assert.equal(options.length, 9);
  await page.keyboard.press("ArrowDown");
  assert.equal(await page.locator("[aria-selected='true']").textContent(), options[1]);
  assert.equal(await page.locator("#site-search").getAttribute("aria-activedescendant"), "result-1");
  await page.keyboard.press("Enter");
  await copied(page, "Brisel::Color::fluorescentOrange144()");
  assert.equal(await page.evaluate(() => document.querySelector(":target").id), "fluorescentOrange144");
  assert.equal(await page.locator("[role='option']").count(), 0);
});

for (const [words, code] of [
  ["VLMBriselColors::gray7", "Brisel::Color::gray7()"], ["gray 7", "Brisel::Color::gray7()"],
  ["VLMBriselIconHeart", "Brisel::Icon::heart()"], ["f320", "Brisel::Icon::heart()"],
  ["VLMBriselSwiftIcons::delete_", "Brisel::Icon::delete_()"], ["with circle of diameter", "Brisel::withCircle"],
  ["#1DB954", "VLMBriselColors::green()"], ["ballad bold", "Brisel::TypeStyle::balladBold()"],
  ["muted accent", "Brisel::Theme::dark().mutedAccent()"],
  ["mutedAccent.text.subdued", "Brisel::Theme::dark().mutedAccent().text().subdued()"],
  ["VLMBriselColorTheme::campaign()->tierAurel()->background()->press()",
    "Brisel::Theme::ColorSet::Campaign::tierAurel().background().press()"],
  ["VLMBrisel::canScaledStringFit", "Brisel::scaledToFit"],
  ["briselSwift_disableDynamicTypeMorning", "Brisel::disableDynamicTypeMonitor"],
  ["briselSwift_applyStyle:forState:withContentSizeCategory:", "Brisel::apply"],
  ["placeholder", "Brisel::applyPlaceholder"], ["legacy label", "VLMBriselLegacyLabel::initWithStyle"],
  ["VLMBriselSpacers::spacer16", "Brisel::Spacer::x16()"], ["opacity 30", "Brisel::Opacity::x30()"],
  ["0.42, 0, 0.58, 1", "VLMBriselCubicBezierCurve::initWithStartHandle({0.42, 0}, {0.58, 1})"],
  ["sub curve", "VLMBriselCubicBezierCurve::subCurveFromStartT"],
  ["VLMBriselTypeStyle::withFontSize", "Brisel::TypeStyle::withFontSize"], ["brisel diff", "Brisel::difference"],
  ["Theme::Text::subdued", "Brisel::Theme::Text::subdued"]]) {
  test(`search finds "${words}" from the start page`, "index.html", async (page) => {
    await page.keyboard.press("/");
    await page.keyboard.type(words);
    await page.keyboard.press("Enter");
    await copied(page, code);
  });
}

test("a click on a result goes to its item on another page", "index.html", async (page) => {
  await page.locator("#site-search").fill("cello canon");
  await page.locator("[role='option']").first().click();
  await page.waitForURL(/type\.html#celloCanon$/);
  assert.equal(await page.evaluate(() => document.querySelector(":target").id), "celloCanon");
});

test("search says so when nothing bears the name", "index.html", async (page) => {
  await page.locator("#site-search").fill("gray");
  assert.ok(await page.locator("[role='option']").count() > 10);
  await page.keyboard.press("Escape");
  assert.equal(await page.locator("[role='option']").count(), 0);
  assert.equal(await page.locator("#site-search").inputValue(), "gray");
  await page.locator("#site-search").fill("nothing is called so");
  assert.equal(await page.locator(".search [role='status']").textContent(), "0 names found");
  assert.equal(await page.locator("[role='option']").count(), 0);
});

test("a click on a name or a value copies it and says what", "colours.html", async (page) => {
  const row = page.locator("#opacityBlack10");
  for (const [cell, text] of [["Brisel::Color::opacityBlack10()", "Brisel::Color::opacityBlack10()"],
    ["VLMBriselColors::opacityBlack10()", "VLMBriselColors::opacityBlack10()"], ["#0000001A", "#0000001A"],
    ["Grey 0.000, alpha 0.1", "Grey 0.000, alpha 0.1"], ["opacityBlack10", "Brisel::Color::opacityBlack10()"]]) {
    await row.getByRole("button", { name: cell, exact: true }).click();
    await copied(page, text);
  }
});

test("what was copied is said for two and a half seconds", "type.html", async (page) => {
  await stopClock(page);
  await page.getByRole("button", { name: "VLMBriselTypeStyle::bass()" }).click();
  await copied(page, "VLMBriselTypeStyle::bass()");
  await page.clock.runFor(2400);
  assert.ok(await page.locator(".toast").isVisible());
  await page.clock.runFor(200);
  assert.ok(!await page.locator(".toast").isVisible());
});

test("what is copied is copied without the newer clipboard too", "type.html", async (page) => {
  await page.evaluate(() => { navigator.clipboard.writeText = () => Promise.reject(new Error("closed")); });
  await page.getByRole("button", { name: "VLMBriselTypeStyle::bass()" }).click();
  await copied(page, "VLMBriselTypeStyle::bass()");
});

test("arrows walk the swatches, and Tab takes a family at a time", "colours.html", async (page) => {
  const focused = () => page.evaluate(() => document.activeElement.textContent.trim());
  await page.locator("#red25 button").first().focus();
  await page.keyboard.press("ArrowDown");
  assert.equal(await focused(), "red55");
  await page.keyboard.press("End");
  assert.match(await focused(), /^#/);
  await page.keyboard.press("Home");
  await page.keyboard.press("ArrowRight");
  assert.equal(await focused(), "Brisel::Color::red55()");
  await page.keyboard.press("Tab");
  assert.equal(await focused(), "redDesat25");
  await page.keyboard.press("Shift+Tab");
  assert.equal(await focused(), "Brisel::Color::red55()");
  await page.keyboard.press("Enter");
  await copied(page, "Brisel::Color::red55()");
});

for (const [path, id] of [["colours.html", "redDesat155"], ["type.html", "minuetBold"],
  ["text-views.html", "subscribed"], ["icons.html", "heart"],
  ["icons.html", "search"], ["themes.html", "mutedAccent.text.subdued"], ["themes.html", "tierEstiva.decorative.base"],
  ["tokens.html", "spacer16"], ["tokens.html", "opacity30"], ["curves.html", "ease-in-out"],
  ["reference.html", "TypeStyle-withFontSize"], ["reference.html", "TypeStyle-withFontSize-AccessibilityRange"]]) {
  test(`a link to ${id} lands on it and marks it`, `${path}#${id}`, async (page) => {
    const { top, bottom, outline, plain } = await page.evaluate((name) => {
      const item = document.getElementById(name);
      const box = item.getBoundingClientRect();
      return { top: box.top, bottom: box.bottom, outline: getComputedStyle(item).outlineStyle,
        plain: getComputedStyle(item.previousElementSibling).outlineStyle };
    }, id);
    assert.ok(top >= 0 && bottom <= 900, `it stands at ${top}`);
    assert.equal(outline, "solid");
    assert.equal(plain, "none");
  });
}

const shownIcons = (page) => page.evaluate(() =>
  [...document.querySelectorAll(".icon:not([hidden])")].map((tile) => tile.id));

test("all 328 icons stand on their page in both designs, each in its own place", "icons.html", async (page) => {
  const places = await page.evaluate(() => [...document.querySelectorAll(".icon")].flatMap((tile) =>
    [...tile.querySelectorAll("button i")].map((icon) => getComputedStyle(icon).backgroundPosition)));
  assert.equal(places.length, 2 * 328);
  assert.equal(new Set(places).size, 2 * 328);
  assert.deepEqual((await shownIcons(page)).slice(20, 25),
    ["arrowDown", "pageLeft", "pageRight", "arrowTopRight", "arrowUp"]);
});

test("icons are shown pixel by pixel as the library drew them", "icons.html", async (page) => {
  const sheet = readFileSync(join(site, "pictures/icons/24.png"), "base64");
  for (const id of ["ad", "heart", "xAlt"]) {
    for (const design of ["x16", "x24"]) {
      const icon = page.locator(`#${id} .${design}`);
      await icon.scrollIntoViewIfNeeded();
      const { x: left, y: top } = await icon.boundingBox();  // of which Chromium draws the nearest whole pixel
      const clip = { x: Math.round(left), y: Math.round(top), width: 24, height: 24 };
      const shown = (await page.screenshot({ clip })).toString("base64");
      const differing = await icon.evaluate(async (element, [sheetData, shownData]) => {
        const pixels = async (data, x, y) => {
          const image = new Image();
          image.src = `data:image/png;base64,${data}`;
          await image.decode();
          const canvas = Object.assign(document.createElement("canvas"), { width: 24, height: 24 });
          const context = canvas.getContext("2d");
          context.drawImage(image, -x, -y);
          return context.getImageData(0, 0, 24, 24).data;
        };
        const [x, y] = getComputedStyle(element).backgroundPosition.split(" ").map((part) => -parseFloat(part));
        const [drawn, seen] = [await pixels(sheetData, x, y), await pixels(shownData, 0, 0)];
        return drawn.filter((byte, index) => byte !== seen[index]).length;
      }, [sheet, shown]);
      assert.equal(differing, 0, `${id}, ${design}`);
    }
  }
});

test("the filter follows the typing, by any of the names", "icons.html", async (page) => {
  for (const [words, found] of [["heart", ["heart", "heartActive"]], ["VLMBriselIconDelete", ["delete"]],
    ["F3DB", ["heart"]], ["Icon::public_", ["public"]], ["plus 2 px", ["plus2Px"]]]) {
    await page.locator("#icon-filter").fill(words);
    assert.deepEqual(await shownIcons(page), found, words);
    assert.equal(await page.locator("#icon-count").textContent(), `${found.length} of 328 icons`);
  }
  await page.locator("#icon-filter").fill("nothing is called so");
  assert.deepEqual(await shownIcons(page), []);
  assert.ok(await page.locator(".none").isVisible());
  await page.keyboard.press("Escape");
  assert.equal((await shownIcons(page)).length, 328);
  assert.ok(!await page.locator(".none").isVisible());
});

test("accessor and constant of an icon are copied", "icons.html#delete", async (page) => {
  const tile = page.locator("#delete");
  for (const [button, text] of [["delete", "Brisel::Icon::delete_()"],
    ["Brisel::Icon::delete_()", "Brisel::Icon::delete_()"],
    ["VLMBriselIconDelete", "VLMBriselIconDelete"]]) {
    await page.evaluate(() => { document.querySelector(".toast").textContent = ""; });
    await tile.getByRole("button", { name: button, exact: true }).click();
    await copied(page, text);
  }
});

test("the icons follow the choice of their size", "icons.html", async (page) => {
  for (const points of [12, 16, 20, 24, 32, 48, 64]) {
    await page.getByRole("radio", { name: String(points), exact: true }).check();
    const { width, image } = await page.evaluate(() => {
      const style = getComputedStyle(document.querySelector("#heart .x24"));
      return { width: style.width, image: style.backgroundImage };
    });
    assert.equal(width, `${points}px`);
    assert.ok(image.includes(`/pictures/icons/${points}.png`), image);
    assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth));
  }
}, { width: 360 });

test("a link to an icon that is filtered out shows it", "icons.html", async (page) => {
  await page.locator("#icon-filter").fill("album");
  await page.keyboard.press("/");
  await page.keyboard.type("watchDownload");
  await page.keyboard.press("Enter");
  await emptied(page, "#icon-filter");
  assert.equal(await page.evaluate(() => location.hash), "#watchDownload");
  const box = await page.locator("#watchDownload").boundingBox();
  assert.ok(box && box.y > 0 && box.y + box.height <= 900, JSON.stringify(box));
});

test("a link to an icon lands below the tools on a narrow screen", "icons.html#heart", async (page) => {
  const [tools, tile] = [await page.locator(".icon-tools").boundingBox(), await page.locator("#heart").boundingBox()];
  assert.ok(tile.y >= tools.y + tools.height, `${tile.y} is under ${tools.y + tools.height}`);
}, { width: 360 });

test("arrows walk the icons, which are one stop of the Tab key", "icons.html", async (page) => {
  const focused = () => page.evaluate(() => document.activeElement.textContent.trim());
  assert.equal(await page.locator(".tiles button[tabindex='0']").count(), 1);
  await page.locator("#ad button").first().focus();
  await page.keyboard.press("ArrowRight");
  assert.equal(await focused(), "addCalendar");
  await page.keyboard.press("ArrowDown");
  assert.equal(await focused(), "Brisel::Icon::addCalendar()");
  await page.keyboard.press("ArrowDown");
  assert.equal(await focused(), "VLMBriselIconAddCalendar");
  await page.keyboard.press("ArrowLeft");
  assert.equal(await focused(), "VLMBriselIconAd");
  await page.keyboard.press("ArrowUp");
  await page.keyboard.press("Enter");
  await copied(page, "Brisel::Icon::ad()");
  assert.equal(await page.locator(".tiles button[tabindex='0']").count(), 1);
});

test("the pairs and the mirrored icons are shown", "icons.html", async (page) => {
  const pairs = await page.locator(".pairs li").allTextContents();
  assert.deepEqual(pairs, ["pageLeft becomes pageRight", "pageRight becomes pageLeft",
    "chevronLeft becomes chevronRight", "chevronRight becomes chevronLeft"]);
  assert.deepEqual(await page.locator(".mirrored a").allTextContents(), ["pageLeft", "pageRight", "arrowTopRight",
    "chevronLeft", "chevronLeftAlt", "chevronRight", "chevronRightAlt", "listView", "halvornConnect"]);
  assert.match(await page.locator("#pageLeft .marks").textContent(), /right to left: pageRight.*to be mirrored/s);
  assert.equal(await page.locator(".marks").count(), 9);
});

test("search shows an icon with its picture", "shapes.html", async (page) => {
  await page.locator("#site-search").fill("heartActive");
  const image = page.locator("[role='option'] img").first();
  assert.match(await image.getAttribute("src"), /pictures\/icons\/24\.png$/);
  await page.waitForFunction(() => document.querySelector("[role='option'] img").naturalWidth > 24);
  assert.match(await image.evaluate((element) => getComputedStyle(element).objectPosition), /^-\d+px -\d+px$/);
});

test("each shape stands there with and without a cut-out, under both names", "shapes.html", async (page) => {
  const calls = await page.locator(".shape button").allTextContents();
  for (const call of ["Brisel::withCircle", "brisel_withCircleOfDiameter",
    "Brisel::withStar", "brisel_withStarOfDiameter",
    "Brisel::withDot", "brisel_withDotOfDiameter", "Brisel::verifiedIndicator", "brisel_verifiedIndicatorForSize",
    "Brisel::imageByScaling", "brisel_imageByScaling"]) {
    assert.ok(calls.some((text) => text.startsWith(`${call}(`)), call);
  }
  for (const shape of ["withCircle", "withStar"]) {
    for (const cutsOut of ["true", "false"]) {
      assert.ok(calls.some((text) => text.startsWith(`Brisel::${shape}(`) && text.endsWith(`${cutsOut})`)), shape);
    }
  }
  await page.locator(".shape button").first().click();
  await copied(page, calls[0]);
});

test("the start page shows a picture of each other page", "index.html", async (page) => {
  const linked = (selector) => page.evaluate((links) =>
    [...document.querySelectorAll(links)].map((link) => link.getAttribute("href")), selector);
  assert.deepEqual(await linked(".panel a:has(img)"), (await linked(".rail nav a")).slice(1));
});

test("nothing moves by itself for those who asked for rest", "colours.html", async (page) => {
  const moving = await page.evaluate(() => document.getAnimations().length);
  assert.equal(moving, 0);
}, { reducedMotion: "reduce" });

test("on paper the page is light and without controls", "type.html", async (page) => {
  const ground = await page.evaluate(() => getComputedStyle(document.documentElement).backgroundColor);
  assert.equal(ground, "rgb(255, 255, 255)");
  assert.equal(await page.locator(".rail").isVisible(), false);
  assert.equal(await page.locator(".text-size").isVisible(), false);
  assert.equal(await page.locator("#bass").isVisible(), true);
}, { media: "print" });

await run(Number(process.argv[3] ?? 1));
