// Takes the README's picture of the start page.
// Usage: node tests/browser/picture.mjs [directory of the style guide] [picture]

import { resolve } from "node:path";
import { pathToFileURL } from "node:url";
import { launch } from "./chromium.mjs";

const [site = "out/gallery", picture = "docs/images/start.png"] = process.argv.slice(2);
const browser = await launch();
const page = await browser.newPage({ viewport: { width: 1440, height: 1896 }, deviceScaleFactor: 2 });
await page.goto(pathToFileURL(resolve(site, "index.html")).href);
await page.waitForSelector("html:not(.waiting)");
await page.waitForFunction(() => [...document.images].every((image) => image.complete && image.naturalWidth > 0));
await page.screenshot({ path: picture });
await browser.close();
