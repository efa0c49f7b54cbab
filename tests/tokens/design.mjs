// What the design says of every token, read from its tables and not from the program that exports them.

import { readFileSync } from "node:fs";

// The arguments of the rows of one kind. Text in quotation marks and lists in brackets are one argument each.
function rows(table, kind) {
  const text = readFileSync(new URL(`../../brisel/${table}`, import.meta.url), "utf8");
  return [...text.matchAll(new RegExp(`^BRISEL_${kind}\\((.*)\\)$`, "gm"))].map(([, row]) =>
    [...row.matchAll(/\s*("[^"]*"|\([^()]*\)|[^,]+)(?:,|$)/g)].map(([, argument]) => argument.trim()));
}

const numbers = (list) => list.slice(1, -1).split(",").map(Number);
// An accessor that C++ reserves has a trailing underscore, which is no part of the published name.
const published = (accessor) => accessor.replace(/_$/, "");

// Colours are [red, green, blue, alpha], 0…1.
function paletteColors(family, table) {
  const greys = rows(table, "GREY").map(([name, white, alpha]) => [name, [white, white, white, alpha].map(Number)]);
  const others = rows(table, "RGB").map(([name, red, green, blue]) => [name, [red, green, blue, 1].map(Number)]);
  return [...greys, ...others].map(([name, value]) => ({ path: [family, published(name)], type: "color", value }));
}

const shades = (table) =>
  new Map(rows(table, "SHADE").map(([label, ...components]) => [label, components.map(Number)]));

const slotPaths = rows("themes/dark_theme.def", "SLOT").map(([path]) => path.replaceAll("()", "").split("."));

function darkTheme() {
  const sets = ["base", "brightAccent", "negative", "warning", "positive", "announcement", "invertedDark",
    "invertedLight", "mutedAccent", "overMedia"];
  const colors = shades("themes/dark_theme.def");
  return rows("themes/dark_theme.def", "SLOT").flatMap(([, ...labels], slot) => labels.map((label, column) =>
    ({ path: ["theme", "dark", sets[column], ...slotPaths[slot]], type: "color", value: colors.get(label) })));
}

// Which of a campaign set's six colours fills a slot, as the head of its table says.
function campaignColor([group, ...rest], { surface, highlight, press, foreground, brightAccent, subdued }) {
  const place = rest.join(".");
  if (group === "background") return { highlight, press }[place] ?? surface;
  if (group === "decorative" && place === "subdued") return subdued;
  return place === "brightAccent" ? brightAccent : foreground;
}

function campaignSets() {
  const colors = shades("themes/campaign.def");
  return rows("themes/campaign.def", "CAMPAIGN").flatMap(
    ([name, surface, highlight, press, foreground, brightAccent, subdued]) => slotPaths.map((path) => ({
      path: ["campaign", name, ...path], type: "color",
      value: colors.get(campaignColor(path, { surface, highlight, press, foreground, brightAccent, subdued })),
    })));
}

// The size at a category's scale: 1.6 is the largest that counts, and the order of the operations is the design's.
function sizeAt(scale, [min, mid, max, axMax]) {
  const clamped = Math.min(scale, 1.6);
  if (clamped < 0) return min + (clamped + 1) * (mid - min);
  return clamped < 1 ? mid + clamped * (max - mid) : max + (clamped - 1) * (axMax - max);
}

// A style at a category is five tokens, as readers without a typography type have it. Typefaces and line height stand
// in no table: what the exported token says of them must reach the reader's output unchanged.
function typeStyles(exported) {
  const categories = rows("typography/content_sizes.def", "CONTENT_SIZE");
  const weights = { book: 400, bold: 700, black: 900 };
  return rows("typography/type_styles.def", "TYPE_STYLE").flatMap(([style, , , weight, , sizes]) =>
    categories.flatMap(([category, scale]) => {
      const { fontFamily, lineHeight } = exported[style][category].$value;
      const part = (name, type, value) => ({ path: ["typography", style, category, name], type, value });
      return [
        part("fontFamily", "fontFamily", fontFamily),
        part("fontSize", "fontSize", sizeAt(Number(scale), numbers(sizes))),
        part("fontWeight", "fontWeight", weights[weight]),
        part("letterSpacing", "fontSize", 0),
        part("lineHeight", "number", lineHeight),
      ];
    }));
}

function icons() {
  return rows("icons/icons.def", "ICON").flatMap(([accessor, , x16, x24]) => [["x16", x16], ["x24", x24]].map(
    ([size, codePoint]) => ({ path: ["icon", published(accessor), size], type: "number", value: Number(codePoint) })));
}

// All tokens: path, type and value. Lengths are in px.
export function designedTokens(exportedTypography) {
  return [
    ...paletteColors("palette", "tokens/palette.def"),
    ...paletteColors("legacy", "tokens/legacy_colors.def"),
    ...rows("tokens/opacities.def", "OPACITY").map(([name, value]) =>
      ({ path: ["opacity", name], type: "number", value: Number(value) })),
    ...rows("tokens/spacers.def", "SPACER").map(([name, value]) =>
      ({ path: ["spacer", name], type: "dimension", value: Number(value) })),
    ...darkTheme(),
    ...campaignSets(),
    ...typeStyles(exportedTypography),
    ...icons(),
  ];
}
