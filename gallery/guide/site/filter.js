// What fields that filter a page do alike.
"use strict";

// Lets `show` follow what is typed into `field`: it hides what of `list` does not match. Escape empties the field, and so
// does a link to what is hidden, which then is shown.
brisel.filter = (field, list, show) => {
  const clear = () => {
    field.value = "";
    show();
  };

  field.addEventListener("input", show);
  field.addEventListener("keydown", (event) => { if (event.key === "Escape") clear(); });
  addEventListener("hashchange", () => {
    const item = document.getElementById(location.hash.slice(1));  // no address in a list needs decoding
    if (!list.contains(item) || !item.closest("[hidden]")) return;
    clear();
    item.scrollIntoView();
  });
};
