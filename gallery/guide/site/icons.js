// The icons: a filter that follows the typing, the size they are shown in, and arrows that walk them.
"use strict";

(() => {
  const grid = document.querySelector(".tiles");
  if (!grid) return;
  const tiles = [...grid.children];
  const filter = document.querySelector("#icon-filter");
  const count = document.querySelector("#icon-count");
  const none = document.querySelector(".none");

  const keys = new Map(briselNames.filter(([, page]) => page === "icons.html").map(
    ([id, , value, , ...names]) => [id, [id, ...value.split(" "), ...names].map(brisel.plain)]));

  const stop = () => grid.querySelector("button[tabindex='0']");
  const enter = (button) => {
    const before = stop();
    if (before) before.tabIndex = -1;
    if (button) button.tabIndex = 0;
  };

  const show = () => {
    const key = brisel.plain(filter.value);
    for (const tile of tiles) tile.hidden = !keys.get(tile.id).some((name) => name.includes(key));
    const shown = tiles.filter((tile) => !tile.hidden);
    count.textContent = shown.length === tiles.length ? `${tiles.length} icons` : `${shown.length} of ${tiles.length} icons`;
    none.hidden = shown.length > 0;
    if (!stop() || stop().closest("[hidden]")) enter(shown[0]?.querySelector("button"));
  };

  for (const button of grid.querySelectorAll("button")) button.tabIndex = -1;
  show();
  brisel.filter(filter, grid, show);

  for (const choice of document.querySelectorAll("[name='icon-size']")) {
    choice.addEventListener("change", () => {
      for (const icons of document.querySelectorAll(".icons")) icons.dataset.size = choice.value;
    });
  }

  grid.addEventListener("focusin", (event) => { if (event.target.matches("button")) enter(event.target); });

  // The nearest button that way; one straight ahead is nearer than one aside.
  const ways = { ArrowUp: [0, -1], ArrowDown: [0, 1], ArrowLeft: [-1, 0], ArrowRight: [1, 0] };
  grid.addEventListener("keydown", (event) => {
    const way = ways[event.key];
    if (!way || !event.target.matches("button") || event.ctrlKey || event.metaKey || event.altKey) return;
    event.preventDefault();
    const from = event.target.getBoundingClientRect();
    let best = null;
    let least = Infinity;
    for (const button of grid.querySelectorAll(".icon:not([hidden]) button")) {
      const box = button.getBoundingClientRect();
      const [x, y] = [box.left - from.left, box.top - from.top];
      const ahead = x * way[0] + y * way[1];
      const aside = Math.abs(x * way[1]) + Math.abs(y * way[0]);
      if (ahead > 1 && ahead + 4 * aside < least) [best, least] = [button, ahead + 4 * aside];
    }
    best?.focus();
  });
})();
