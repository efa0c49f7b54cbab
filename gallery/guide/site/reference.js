// The reference: a filter that follows the typing, by the names and by what is said of them.
"use strict";

(() => {
  const reference = document.querySelector(".reference");
  if (!reference) return;
  const filter = document.querySelector("#reference-filter");
  const count = document.querySelector("#reference-count");
  const none = document.querySelector(".none");
  const entries = [...reference.querySelectorAll(".entry, .catalogue li")];
  const catalogues = [...reference.querySelectorAll(".catalogue")];
  // Inner ones first: what holds nothing that is shown is not shown.
  const holders = [".entries, .catalogue", ".group", "section"].flatMap((each) => [...reference.querySelectorAll(each)]);
  const opened = new Set();  // by the filter

  let keys;
  const keysOf = (entry) => {
    const title = entry.closest(".group").querySelector("h3").textContent;
    const scopes = entry.closest(".catalogue")?.querySelector("summary span").textContent.split(" and ") ?? [];
    const names = [...entry.querySelectorAll("b")].map((part) => (part.closest("button") ?? part).textContent);
    return [title, entry.textContent, ...names, ...scopes.flatMap((scope) => names.map((name) => scope + name))].map(brisel.plain);
  };

  const show = () => {
    keys ??= new Map(entries.map((entry) => [entry, keysOf(entry)]));
    const key = brisel.plain(filter.value);
    for (const entry of entries) entry.hidden = !keys.get(entry).some((name) => name.includes(key));
    for (const holder of holders) holder.hidden = !holder.querySelector(".entry:not([hidden]), .catalogue li:not([hidden])");
    for (const catalogue of catalogues) {
      if (key !== "" && !catalogue.open) opened.add(catalogue);
      if (opened.has(catalogue)) catalogue.open = key !== "";
    }
    if (key === "") opened.clear();
    const shown = entries.filter((entry) => !entry.hidden).length;
    count.textContent = shown === entries.length ? `${shown} entries` : `${shown} of ${entries.length} entries`;
    none.hidden = shown > 0;
    // The Tab key stops at what is shown.
    for (const grid of reference.querySelectorAll(".swatches:not([hidden])")) {
      const stop = grid.querySelector("button[tabindex='0']");
      if (!stop?.closest("[hidden]")) continue;
      stop.tabIndex = -1;
      grid.querySelector(".entry:not([hidden]) button").tabIndex = 0;
    }
  };

  brisel.filter(filter, reference, show);
})();
