// The page of tokens.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { copied, site, test } from "./harness.mjs";

test("13 spacers and 6 opacities stand there with their values, drawn to size", "tokens.html", async (page) => {
  const rows = await page.evaluate(() => [...document.querySelectorAll(".token")].map((row) =>
    [...row.querySelectorAll("button")].map((button) => button.textContent).join(" ")));
  const spacers = [4, 8, 12, 16, 20, 24, 32, 40, 48, 56, 64, 72, 80];
  assert.deepEqual(rows, [
    ...spacers.map((value) => `spacer${value} Brisel::Spacer::x${value}() VLMBriselSpacers::spacer${value}() ${value}`),
    ...[0, 10, 30, 50, 70, 90].map((value) =>
      `opacity${value} Brisel::Opacity::x${value}() VLMBriselOpacities::opacity${value}() ${value / 100}`)]);
  // The gap between the elements, in the picture as it is shown: columns whose upper edge is not an element's.
  const gaps = await page.evaluate(() => {
    const images = [...document.querySelectorAll("[id^='spacer'] img")];
    return Promise.all(images.map(async (image) => {
      image.loading = "eager";
      await image.decode();
      return { width: image.clientWidth, height: image.clientHeight, source: image.getAttribute("src") };
    }));
  });
  for (const [index, { width, height, source }] of gaps.entries()) {
    assert.deepEqual([width, height], [160, 40]);
    const columns = await page.evaluate(async (data) => {
      const image = new Image();
      image.src = `data:image/png;base64,${data}`;
      await image.decode();
      const context = Object.assign(document.createElement("canvas"), { width: 160, height: 40 }).getContext("2d");
      context.drawImage(image, 0, 0);
      return [...Array(160).keys()].map((x) => context.getImageData(x, 0, 1, 1).data[0]);
    }, readFileSync(join(site, source), "base64"));
    const first = columns.findIndex((value) => value !== columns[0]);
    const second = columns.findIndex((value, x) => x > first && value === columns[0]);
    assert.equal(second - first, spacers[index]);
  }
  await page.locator("#opacity30").getByRole("button", { name: "VLMBriselOpacities::opacity30()" }).click();
  await copied(page, "VLMBriselOpacities::opacity30()");
});
