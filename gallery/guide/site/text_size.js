// The text-size control: all specimens and figures of the page follow it.
"use strict";

(() => {
  const control = document.querySelector("#text-size");
  if (!control) return;
  const category = document.querySelector("#category");

  const follow = () => {
    const step = control.valueAsNumber;
    category.textContent = briselCategories[step];
    for (const element of document.querySelectorAll("[data-points]")) {
      const points = Number(element.dataset.points.split(" ")[step]);
      element.textContent = String(Math.round(points * 1000) / 1000);
    }
    for (const image of document.querySelectorAll("img[data-sizes]")) {
      const [width, height] = image.dataset.sizes.split(" ")[step].split("x");
      const path = `${image.dataset.picture}-${briselCategories[step]}`;
      image.width = Number(width);
      image.height = Number(height);
      image.srcset = `${path}@2x.png 2x`;
      image.src = `${path}.png`;
    }
    for (const row of document.querySelectorAll("tr")) {
      [...row.cells].forEach((cell, index) => cell.classList.toggle("current", index === step + 1));
    }
    control.setAttribute("aria-valuetext", document.querySelector(".text-size output").textContent);
  };

  control.addEventListener("input", follow);
  follow();
})();
