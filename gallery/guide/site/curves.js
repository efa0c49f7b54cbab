// The dots of a timing curve move by the values that the library gave: while the curve is pointed at, except for those
// who asked for rest, and once by its button.
"use strict";

(() => {
  const duration = 1200, rest = 600;  // milliseconds
  const reduced = matchMedia("(prefers-reduced-motion: reduce)");

  for (const figure of document.querySelectorAll(".curve")) {
    const samples = figure.dataset.samples.split(" ");
    const last = samples.length - 1;
    let frame = 0, start = 0, isPointedAt = false;

    const show = (step) => {
      figure.style.setProperty("--x", String(step / last));
      figure.style.setProperty("--y", samples[step]);
    };
    const move = (time) => {
      start ||= time;
      show(Math.min(Math.round((time - start) / duration * last), last));
      if (time - start > duration + rest) start = 0;
      frame = start || isPointedAt ? requestAnimationFrame(move) : 0;
    };
    const play = () => {
      cancelAnimationFrame(frame);
      start = 0;
      frame = requestAnimationFrame(move);
    };
    const point = (isOn) => {
      isPointedAt = isOn && !reduced.matches;
      if (isPointedAt && !frame) play();
    };

    figure.addEventListener("mouseenter", () => point(true));
    figure.addEventListener("mouseleave", () => point(false));
    figure.querySelector(".play").addEventListener("click", play);
  }
})();
