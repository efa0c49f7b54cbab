// The page shows when its faces are there, so that no line moves under its reader's eyes.
"use strict";

(() => {
  const root = document.documentElement.classList;
  const show = () => root.remove("waiting");
  root.add("waiting");
  Promise.allSettled([...document.fonts].map((face) => face.load())).then(show);
  setTimeout(show, 1000);
})();
