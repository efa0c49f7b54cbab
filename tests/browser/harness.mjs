// What the tests of the style guide share: a fresh page for each, in as many browsers as may run at once.

import assert from "node:assert/strict";
import { existsSync } from "node:fs";
import { join, resolve } from "node:path";
import { pathToFileURL } from "node:url";
import { launch } from "./chromium.mjs";

export const site = resolve(process.argv[2] ?? "out/gallery");

if (!existsSync(join(site, "index.html"))) {
  console.error(`There is no style guide in ${site}; make gallery writes one.`);
  process.exit(1);
}

const tests = [];

// Names a test: what `body` does with a fresh page, which must stay free of errors throughout.
export function test(name, path, body, { width = 1440, height = 900, ...media } = {}) {
  tests.push({ name, path, body, size: { width, height }, media: { reducedMotion: "no-preference", ...media } });
}

// Runs one test, and returns what went wrong, or nothing.
async function faultOf({ path, body, size, media }, browser) {
  const page = await browser.newPage({ viewport: size, permissions: ["clipboard-read", "clipboard-write"] });
  const faults = [];
  page.on("console", (message) => { if (message.type() === "error") faults.push(`console: ${message.text()}`); });
  page.on("pageerror", (error) => faults.push(`script: ${error.message}`));
  // What the page itself drops (a picture whose source changes while it loads) is no fault.
  page.on("requestfailed", (request) => {
    if (request.failure().errorText !== "net::ERR_ABORTED") faults.push(`not loaded: ${request.url()}`);
  });
  page.on("request", (request) => {
    if (!/^(file|data):/.test(request.url())) faults.push(`asked the network for ${request.url()}`);
  });
  try {
    await page.emulateMedia(media);
    await page.addInitScript(() => {
      // What is set before there is a body is the page's alarm for faces that do not come: here they do, however late.
      const later = window.setTimeout;
      window.setTimeout = (what, milliseconds, ...rest) => later(what, document.body ? milliseconds : 1e6, ...rest);
      window.shift = 0;
      new PerformanceObserver((list) => {
        for (const entry of list.getEntries()) if (!entry.hadRecentInput) window.shift += entry.value;
      }).observe({ type: "layout-shift", buffered: true });
    });
    const [file, fragment] = path.split("#");
    await page.goto(pathToFileURL(join(site, file)).href + (fragment ? `#${fragment}` : ""));
    await page.waitForSelector("html:not(.waiting)");
    await body(page);
    assert.deepEqual(faults, []);
    return undefined;
  } catch (error) {
    return String(error.stack ?? error);
  } finally {
    await page.close();
  }
}

// Runs all tests that were named, each browser taking the next that none has taken, and ends the process with what they
// came to. A browser has a clipboard of its own, and each runs one test at a time.
export async function run(jobs) {
  const waiting = tests.values();
  let passed = 0;
  await Promise.all(Array.from({ length: Math.min(jobs, tests.length) }, async () => {
    const browser = await launch();
    for (const each of waiting) {
      const fault = await faultOf(each, browser);
      if (fault === undefined) passed += 1;
      console.log(fault === undefined ? `ok - ${each.name}` : `not ok - ${each.name}\n${fault.replace(/^/gm, "    ")}`);
    }
    await browser.close();
  }));
  console.log(`${passed} of ${tests.length} passed`);
  process.exit(passed === tests.length ? 0 : 1);
}

// Waits until the page says that it copied a text, and asserts that it did.
export async function copied(page, text) {
  await page.waitForFunction((expected) => document.querySelector(".toast").textContent === `Copied ${expected}`, text);
  assert.equal(await page.evaluate(() => navigator.clipboard.readText()), text);
}
// Waits until a field is empty, as the page makes it some time after a link has led to what its filter hid.
export const emptied = (page, field) => page.waitForFunction((selector) => document.querySelector(selector).value === "", field);

// Stops the page's clock, at an hour that no test takes so long to reach: it cannot be set back.
export async function stopClock(page) {
  await page.clock.install({ time: 0 });
  await page.clock.pauseAt(3_600_000);
}

// Scrolls through the whole page, so that what loads late has loaded.
export async function scrollThrough(page) {
  await page.evaluate(async () => {
    for (let y = 0; y < document.documentElement.scrollHeight; y += innerHeight) {
      scrollTo(0, y);
      await new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done)));
    }
  });
  await page.waitForFunction(() => [...document.images].every((image) => image.complete));
}
