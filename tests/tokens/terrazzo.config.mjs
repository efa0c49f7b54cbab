// What Terrazzo makes of the exported tokens, with the rules of the format that it can hold them to.
// The working directory has them in dtcg/.

import { defineConfig } from "@terrazzo/cli";
import css from "@terrazzo/plugin-css";

const validity = ["color", "font-family", "font-weight", "number", "typography"];

export default defineConfig({
  tokens: ["dtcg/brisel.tokens.json"],
  outDir: "terrazzo/",
  plugins: [css({ filename: "brisel.css" })],
  lint: {
    rules: {
      ...Object.fromEntries(validity.map((type) => [`core/valid-${type}`, "error"])),
      // rem would scale a text size twice: it is already that of a category.
      "core/valid-dimension": ["error", { allowedUnits: ["px"] }],
      // A type of its own on every token, for readers that inherit none.
      "core/required-type": "error",
      "core/colorspace": ["error", { colorSpace: "srgb" }],
      // Names are those of the code.
      "core/consistent-naming": "off",
    },
  },
});
