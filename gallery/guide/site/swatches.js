// The rows of swatches that belong together are one stop of the Tab key; arrows go from button to button, and on to the
// next of them.
"use strict";

(() => {
  const rows = [...document.querySelectorAll(".swatches [role='row']")].map((row) => [...row.querySelectorAll("button")]);
  if (rows.length === 0) return;

  const stopOf = (button) => button.closest(".swatches");
  const enter = (button) => {
    for (const other of stopOf(button).querySelectorAll("button[tabindex='0']")) other.tabIndex = -1;
    button.tabIndex = 0;
  };
  for (const button of rows.flat()) button.tabIndex = -1;
  for (const grid of document.querySelectorAll(".swatches")) grid.querySelector("button").tabIndex = 0;

  document.addEventListener("focusin", (event) => {
    if (event.target.matches(".swatches button")) enter(event.target);
  });

  document.addEventListener("keydown", (event) => {
    if (!event.target.matches(".swatches button") || event.ctrlKey || event.metaKey || event.altKey) return;
    const shown = rows.filter(([button]) => !button.closest("[hidden]"));
    const y = shown.findIndex((row) => row.includes(event.target));
    const x = shown[y].indexOf(event.target);
    const at = (row, cell) => shown[row]?.[Math.min(cell, shown[row].length - 1)];
    const next = {
      ArrowUp: () => at(y - 1, x),
      ArrowDown: () => at(y + 1, x),
      ArrowLeft: () => shown[y][x - 1],
      ArrowRight: () => shown[y][x + 1],
      Home: () => shown[y][0],
      End: () => shown[y].at(-1),
    }[event.key]?.();
    if (!next) return;
    event.preventDefault();
    next.focus();
  });
})();
