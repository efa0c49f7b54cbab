// The page of timing curves.

import assert from "node:assert/strict";
import { copied, stopClock, test } from "./harness.mjs";

const curves = [["linear", "0.25, 0.25, 0.75, 0.75"], ["ease", "0.25, 0.1, 0.25, 1"], ["ease-in", "0.42, 0, 1, 1"],
  ["ease-out", "0, 0, 0.58, 1"], ["ease-in-out", "0.42, 0, 0.58, 1"], ["overshoot", "0.34, 1.56, 0.64, 1"]];

// The eased value of x, by bisection.
const eased = ([x1, y1, x2, y2], x) => {
  const at = (p1, p2, t) => 3 * (1 - t) ** 2 * t * p1 + 3 * (1 - t) * t ** 2 * p2 + t ** 3;
  let [low, high] = [0, 1];
  while (high - low > 1e-9) {
    const middle = (low + high) / 2;
    if (at(x1, x2, middle) < x) low = middle; else high = middle;
  }
  return at(y1, y2, low);
};

test("six curves stand there with their calls, and values of theirs", "curves.html", async (page) => {
  const shown = await page.evaluate(() => [...document.querySelectorAll(".curve")].map((figure) =>
    [figure.id, figure.dataset.samples.split(" ").map(Number),
      ...[...figure.querySelectorAll("button")].map((button) => button.textContent)]));
  assert.equal(shown.length, curves.length);
  for (const [index, [id, samples, code, value]] of shown.entries()) {
    assert.deepEqual([id, value], curves[index]);
    const numbers = value.split(", ");
    assert.equal(code, "VLMBriselCubicBezierCurve::initWithStartHandle(" +
      `{${numbers[0]}, ${numbers[1]}}, {${numbers[2]}, ${numbers[3]}})`);
    assert.equal(samples.length, 145);
    for (const [frame, sample] of samples.entries()) {
      const y = eased(numbers.map(Number), frame / 144);
      // An x that is missed by 0.005 where overshoot is steepest, at 1.56 / 0.34, is a y that is missed by 0.023.
      assert.ok(Math.abs(sample - y) < 0.024, `${id}: ${sample} at frame ${frame}, not ${y}`);
    }
  }
});

// Has a curve play, and notes in `window.seen` what its dots show in each frame until they have come to the end.
const play = (page, id) => page.evaluate((name) => {
  const figure = document.getElementById(name);
  const dots = figure.querySelectorAll(".graph i");
  const middle = (dot) => { const box = dot.getBoundingClientRect(); return [box.x + box.width / 2, box.y + box.height / 2]; };
  const [[left, bottom], [rail]] = [...dots].map(middle);
  window.seen = [];
  const look = () => {
    const [[x, y], [railX, railY]] = [...dots].map(middle);
    seen.push({ x: (x - left) / 160, y: (bottom - y) / 160, railY: (bottom - railY) / 160, isOnRail: railX === rail });
    if (seen.at(-1).x < 1) requestAnimationFrame(look);
  };
  figure.querySelector(".play").click();
  requestAnimationFrame(look);
}, id);

for (const reducedMotion of ["no-preference", "reduce"]) {
  test(`its button moves a curve's dots by its values, with ${reducedMotion}`, "curves.html", async (page) => {
    await stopClock(page);
    for (const id of ["ease-in", "overshoot"]) {
      await page.locator(`#${id}`).scrollIntoViewIfNeeded();
      const samples = (await page.locator(`#${id}`).getAttribute("data-samples")).split(" ").map(Number);
      await play(page, id);
      await page.clock.runFor(1300);
      const seen = await page.evaluate(() => window.seen);
      assert.ok(seen.length > 50, `only ${seen.length} frames`);
      for (const { x, y, railY, isOnRail } of seen) {
        assert.ok(Math.abs(y - samples[Math.round(x * 144)]) < 1e-3, `${id}: ${y} at ${x}`);
        assert.ok(Math.abs(y - railY) < 1e-3 && isOnRail);
      }
      assert.equal(samples.at(-1), 1);
      assert.ok(seen.at(-1).x >= 1 && Math.abs(seen.at(-1).y - 1) < 1e-3);
    }
    assert.equal(await page.locator(".toast").isVisible(), false, "what plays copies nothing");
  }, { reducedMotion });
}

test("a curve moves while it is pointed at, and no other does", "curves.html", async (page) => {
  await page.waitForTimeout(100);
  assert.equal(await page.locator(".curve[style]").count(), 0);
  await page.locator("#ease img").hover();
  await page.waitForSelector("#ease[style]");
  assert.equal(await page.locator(".curve[style]").count(), 1);
});

test("pointing moves nothing for those who asked for rest", "curves.html", async (page) => {
  await page.locator("#ease img").hover();
  await page.waitForTimeout(200);
  assert.equal(await page.locator(".curve[style]").count(), 0);
}, { reducedMotion: "reduce" });

test("points and handles and the part of a curve have their calls", "curves.html", async (page) => {
  const calls = await page.locator(".shape:not(.curve) button").allTextContents();
  assert.deepEqual(calls, ["curve->positionAndHandleAt(0.25)", "curve->positionAndHandleAt(0.5)",
    "curve->positionAndHandleAt(0.75)", "curve->subCurveFromStartT(0.2, 0.8)"]);
  await page.getByRole("button", { name: calls[1], exact: true }).click();
  await copied(page, calls[1]);
});
