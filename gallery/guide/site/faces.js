// The page shows when its faces are there and it is read whole, so that no line moves under its reader's eyes.
"use strict";

(() => {
  const root = document.documentElement.classList;
  const show = () => root.remove("waiting");
  root.add("waiting");
  setTimeout(show, 3000);  // as long as browsers hide text whose face has not come
  const read = new Promise((done) => { document.addEventListener("DOMContentLoaded", done); });
  Promise.allSettled([read, ...[...document.fonts].map((face) => face.load())]).then(show);
})();
