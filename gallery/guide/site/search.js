// Search by any name: "/" leads to it, arrows choose, Enter copies, a click goes to the item.
"use strict";

(() => {
  const input = document.querySelector("#site-search");
  const list = document.querySelector("#site-results");
  const found = document.querySelector(".found");
  const status = document.querySelector(".search [role='status']");
  const here = location.pathname.split("/").at(-1) || "index.html";
  const most = 40;

  // "gray 7", "Gray7" and "Brisel::Color::gray7()" are the same to who searches.
  const plain = brisel.plain = (text) => text.toLowerCase().replace(/[^\p{L}\p{N}]/gu, "");
  const calls = (path, dot) => path.split(".").map((part) => `${dot}${part}()`).join("");
  const slots = briselColorSets.flatMap(([set, code, objectCode, ...values]) => briselSlots.map((path, index) => [
    `${set}.${path}`, "themes.html", values[index], `pictures/themes/${values[index].slice(1)}.png`,
    code + calls(path, "."), objectCode + calls(path, "->")]));
  const items = [...briselNames, ...slots].map(([id, page, value, picture, ...names]) => (
    { id, page, value, picture, names, keys: [id, ...names, value].map(plain) }));
  let results = [];
  let active = -1;

  const rank = (item, key) => {
    if (item.keys.includes(key)) return 0;
    if (item.keys.some((name) => name.startsWith(key))) return 1;
    return item.keys.some((name) => name.includes(key)) ? 2 : 3;
  };

  const choose = (index) => {
    list.children[active]?.setAttribute("aria-selected", "false");
    active = index;
    const option = list.children[active];
    option?.setAttribute("aria-selected", "true");
    option?.scrollIntoView({ block: "nearest" });
    if (option) input.setAttribute("aria-activedescendant", option.id);
    else input.removeAttribute("aria-activedescendant");
  };

  const optionFor = (item, index) => {
    const option = document.createElement("li");
    option.id = `result-${index}`;
    option.setAttribute("role", "option");
    option.setAttribute("aria-selected", "false");
    if (item.picture) {
      const image = new Image(24, 24);
      image.alt = "";
      const [file, x, y] = item.picture.split(" ");
      if (x) {
        image.className = "sheet";
        image.style.objectPosition = `${-x}px ${-y}px`;
      }
      image.srcset = `${file.replace(/\.png$/, "@2x.png")} 2x`;
      image.src = file;
      option.append(image);
    }
    const name = document.createElement("span");
    name.className = "name";
    for (const part of item.names[0].split(/(?<=::)|(?=\.|->)/)) name.append(part, document.createElement("wbr"));
    const value = document.createElement("span");
    value.className = "value";
    value.textContent = item.value;
    option.append(name, value);
    option.addEventListener("click", () => { show(""); go(item); });
    return option;
  };

  const show = (text) => {
    const key = plain(text);
    results = key === "" ? [] : items.map((item) => [rank(item, key), item]).filter(([order]) => order < 3)
      .sort(([a], [b]) => a - b).map(([, item]) => item);
    list.replaceChildren(...results.slice(0, most).map(optionFor));
    found.hidden = results.length === 0;
    input.setAttribute("aria-expanded", String(!found.hidden));
    status.textContent = key === "" ? "" : `${results.length} names found`;
    choose(results.length > 0 ? 0 : -1);
  };

  const go = (item) => { location.href = `${item.page}#${item.id}`; };

  input.addEventListener("input", () => show(input.value));
  input.addEventListener("focus", () => { if (input.value) show(input.value); });
  input.addEventListener("blur", () => show(""));
  found.addEventListener("mousedown", (event) => event.preventDefault());  // a click on a result leaves the field focused
  input.addEventListener("keydown", (event) => {
    const count = list.children.length;
    if (event.key === "Escape") {
      if (found.hidden) input.value = "";
      show("");
    } else if (event.key === "Enter" && results[active]) {
      const item = results[active];
      brisel.copy(item.names[0]);
      if (item.page === here) {
        show("");
        go(item);
      }
    } else if (event.key === "ArrowDown" && count > 0) {
      choose((active + 1) % count);
    } else if (event.key === "ArrowUp" && count > 0) {
      choose((active + count - 1) % count);
    } else {
      return;
    }
    event.preventDefault();
  });

  document.addEventListener("keydown", (event) => {
    if (event.key !== "/" || event.ctrlKey || event.metaKey || event.altKey || event.target === input) return;
    event.preventDefault();
    input.focus();
    input.select();
  });
})();
