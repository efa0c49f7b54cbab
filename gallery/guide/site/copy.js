// A click on a name or a value copies it, and says so.
"use strict";

const brisel = {};

(() => {
  const toast = document.querySelector(".toast");
  let timer = 0;

  const say = (text) => {
    toast.textContent = text;
    toast.hidden = false;
    clearTimeout(timer);
    timer = setTimeout(() => { toast.hidden = true; }, 2500);
  };

  // Where the clipboard is closed to pages from files, the older command still works.
  const copyBySelection = (text) => {
    const holder = document.createElement("textarea");
    const focused = document.activeElement;
    holder.value = text;
    holder.className = "hidden";
    document.body.append(holder);
    holder.select();
    const copied = document.execCommand("copy");
    holder.remove();
    focused?.focus({ preventScroll: true });
    return copied;
  };

  brisel.copy = async (text) => {
    let copied = true;
    try {
      await navigator.clipboard.writeText(text);
    } catch {
      copied = copyBySelection(text);
    }
    say(copied ? `Copied ${text}` : `Could not copy ${text}`);
  };

  document.addEventListener("click", (event) => {
    const button = event.target.closest("main button:not(.play)");
    if (button) brisel.copy(button.dataset.copy ?? button.textContent);
  });
})();
