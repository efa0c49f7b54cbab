// What the tests of the style guide share: one browser, and a fresh page for each test.

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

const context = await launch({ permissions: ["clipboard-read", "clipboard-write"] });

let passed = 0;
let failed = 0;

// Runs one test on a fresh page, which must stay free of errors throughout.
export async function test(name, path, body, { width = 1440, height = 900, ...options } = {}) {
  const page = await context.newPage();
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
    await page.setViewportSize({ width, height });
    await page.emulateMedia({ reducedMotion: "no-preference", ...options });
    await page.addInitScript(() => {
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
    passed += 1;
    console.log(`ok - ${name}`);
  } catch (error) {
    failed += 1;
    console.log(`not ok - ${name}\n${String(error.stack ?? error).replace(/^/gm, "    ")}`);
  } finally {
    await page.close();
  }
}

export const clipboard = (page) => page.evaluate(() => navigator.clipboard.readText());
export const toast = (page) => page.locator(".toast").textContent();
// Waits until the page says that it copied a text.
export const copied = (page, text) => page.waitForFunction(
  (expected) => document.querySelector(".toast").textContent === `Copied ${expected}`, text);

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

// Closes the browser, and ends the process with what the tests came to.
export async function finish() {
  await context.browser().close();
  console.log(`${passed} passed, ${failed} failed`);
  process.exit(failed === 0 ? 0 : 1);
}
