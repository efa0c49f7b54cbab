// The text-size control: all specimens and figures of the page follow it.
"use strict";

(() => {
  const control = document.querySelector("#text-size");
  if (!control) return;
  // The largest text sizes, in which nothing grows any more, share the last entry.
  const entry = (list, step) => Math.min(step, list.length - 1);
  const category = document.querySelector("#category");

  const follow = () => {
    const step = control.valueAsNumber;
    category.textContent = briselCategories[step];
    for (const element of document.querySelectorAll("[data-points]")) {
      const points = Number(element.dataset.points.split(" ")[step]);
      element.textContent = String(Math.round(points * 1000) / 1000);
    }
    for (const image of document.querySelectorAll("img[data-sizes]")) {
      const sizes = image.dataset.sizes.split(" ");
      const index = entry(sizes, step);
      const [width, height] = sizes[index].split("x");
      const path = `${image.dataset.picture}-${briselCategories[index]}`;
      image.width = Number(width);
      image.height = Number(height);
      image.srcset = `${path}@2x.png 2x`;
      image.src = `${path}.png`;
    }
    for (const element of document.querySelectorAll("[data-texts]")) {
      const texts = element.dataset.texts.split("|");
      element.textContent = texts[entry(texts, step)];
    }
    for (const row of document.querySelectorAll("tr")) {
      [...row.cells].forEach((cell, index) => cell.classList.toggle("current", index === step + 1));
    }
    control.setAttribute("aria-valuetext", document.querySelector(".text-size output").textContent);
  };

  control.addEventListener("input", follow);
  follow();
})();
