// What Style Dictionary makes of the exported tokens, with the switches that it needs to spoil none of them.
// The working directory has them in dtcg/.

const buildPath = "style-dictionary/";
// Lengths are px; the mobile platforms take them for rem, and would multiply by sixteen.
const basePxFontSize = 1;
const options = { className: "Brisel", packageName: "brisel" };
// Opacities and line heights; the other numbers are the code points of icons.
const isReal = ({ $type, path: [family] }) => $type === "number" && family !== "icon";
// Kotlin and Swift get a list of typefaces without quotation marks, which is no source text.
const isSource = ({ $type }) => $type !== "fontFamily";

export default {
  // The whole, beside the families, would define each token twice.
  source: ["dtcg/!(brisel).tokens.json"],
  // Collisions and what cannot be transformed end the build.
  log: { warnings: "error" },
  // Otherwise CSS loses the letter spacing, and the mobile platforms write [object Object]. As font sizes both lengths
  // become sp, the only unit that Compose takes for them.
  expand: { include: ["typography"], typesMap: { typography: { fontSize: "fontSize", letterSpacing: "fontSize" } } },
  hooks: {
    transforms: {
      // Otherwise an opacity of 0 is a whole number in Kotlin and Swift, and of another type than the rest.
      "number/real": { type: "value", filter: isReal, transform: ({ $value }) =>
        Number.isInteger($value) ? $value.toFixed(1) : $value },
    },
    formats: {
      // Android's own format has every number in <integer>, where 0.1 is an error.
      "android/reals": ({ dictionary: { allTokens } }) => ['<?xml version="1.0" encoding="UTF-8"?>', "<resources>",
        ...allTokens.map(({ name, $value }) => `  <item name="${name}" type="dimen" format="float">${$value}</item>`),
        "</resources>", ""].join("\n"),
    },
  },
  platforms: {
    css: { transformGroup: "css", prefix: "brisel", buildPath,
      files: [{ destination: "brisel.css", format: "css/variables" }] },
    scss: { transformGroup: "scss", prefix: "brisel", buildPath,
      files: [{ destination: "brisel.scss", format: "scss/variables" }] },
    android: { transformGroup: "android", prefix: "brisel", basePxFontSize, buildPath, files: [
      { destination: "brisel.xml", format: "android/resources", filter: (token) => !isReal(token),
        options: { resourceMap: { color: "color", dimension: "dimen", fontSize: "dimen", number: "integer",
          fontWeight: "integer" } } },
      { destination: "brisel_reals.xml", format: "android/reals", filter: isReal },
    ] },
    compose: { transformGroup: "compose", transforms: ["number/real"], basePxFontSize, buildPath,
      files: [{ destination: "Brisel.kt", format: "compose/object", filter: isSource, options }] },
    ios: { transformGroup: "ios-swift", transforms: ["number/real"], basePxFontSize, buildPath,
      files: [{ destination: "Brisel.swift", format: "ios-swift/enum.swift", filter: isSource, options }] },
    json: { transformGroup: "js", buildPath, files: [{ destination: "brisel.json", format: "json/nested" }] },
  },
};
