// What the readers write: where, how a name and a value stand there, and how exactly.

const words = (name) => name.replace(/([a-z0-9])([A-Z])/g, "$1 $2").toLowerCase().split(" ");
const kebab = (path) => path.flatMap(words).join("-");
const snake = (path) => path.flatMap(words).join("_");
const camel = ([first, ...rest]) => first + rest.map((name) => name[0].toUpperCase() + name.slice(1)).join("");

// What the groups of a pattern hold, or undefined.
const capture = (pattern, text) => pattern.exec(text)?.slice(1);
const captureNumbers = (pattern, text) => capture(pattern, text)?.map(Number);
const captureNumber = (pattern, text) => captureNumbers(pattern, text)?.[0];
const byteFractions = (digits) => digits.match(/../g).map((byte) => parseInt(byte, 16) / 255);

// How values are read, by types of tokens. What does not look as it must gives undefined.
// Colours are [red, green, blue, alpha], 0…1.
const number = (text) => captureNumber(/^(\d+(?:\.\d+)?)$/, text);
const wholeNumber = (text) => captureNumber(/^(\d+)$/, text);
const px = (text) => captureNumber(/^([\d.]+)px$/, text);
const fontFamily = (text) => text.split(", ").map((name) => name.replace(/^"(.*)"$/, "$1"));
const css = { dimension: px, fontSize: px, number, fontWeight: wholeNumber, fontFamily };

const cssOfBytes = { ...css,
  color(text) {
    const opaque = capture(/^#([0-9a-f]{6})$/, text);
    if (opaque) return [...byteFractions(opaque[0]), 1];
    const [red, green, blue, alpha] = captureNumbers(/^rgba\((\d+), (\d+), (\d+), ([\d.]+)\)$/, text) ?? [];
    return alpha === undefined ? undefined : [red / 255, green / 255, blue / 255, alpha];
  },
};

const cssOfPercents = { ...css,
  color(text) {
    const parts = capture(/^rgb\(([\d.]+)% ([\d.]+)% ([\d.]+)%(?: \/ ([\d.]+)(%?))?\)$/, text);
    if (!parts) return undefined;
    const [red, green, blue, alpha = 1, percent] = parts;
    return [red / 100, green / 100, blue / 100, percent ? alpha / 100 : Number(alpha)];
  },
};

// Our own icons are strings for the property `content`: "\f320".
const ownCssValues = { ...cssOfPercents,
  number(text) {
    const character = capture(/^"\\([0-9a-f]+)"$/, text);
    return character ? parseInt(character[0], 16) : number(text);
  },
};

function alphaFirst(pattern, text) {
  const digits = capture(pattern, text);
  if (!digits) return undefined;
  const [alpha, ...components] = byteFractions(digits[0]);
  return [...components, alpha];
}

// A value is preceded by the kind of its element, which matters as much: 0.1 is no <integer>.
const android = {
  color: (text) => alphaFirst(/^color: #([0-9a-f]{8})$/, text),
  dimension: (text) => captureNumber(/^dimen: (\d+\.\d\d)dp$/, text),
  fontSize: (text) => captureNumber(/^dimen: (\d+\.\d\d)sp$/, text),
  number: (text) => captureNumber(/^(?:item: |integer: (?=\d+$))([\d.]+)$/, text),
  fontWeight: (text) => captureNumber(/^integer: (\d+)$/, text),
  fontFamily: (text) => capture(/^string: (.*)$/, text)?.[0].split(","),
};

const compose = {
  color: (text) => alphaFirst(/^Color\(0x([0-9a-f]{8})\)$/, text),
  dimension: (text) => captureNumber(/^(\d+\.\d\d)\.dp$/, text),
  fontSize: (text) => captureNumber(/^(\d+\.\d\d)\.sp$/, text),
  number,
  fontWeight: wholeNumber,
};

const points = (text) => captureNumber(/^CGFloat\((\d+\.\d\d)\)$/, text);
const swift = {
  color: (text) => captureNumbers(
    /^UIColor\(red: (\d\.\d{3}), green: (\d\.\d{3}), blue: (\d\.\d{3}), alpha: ([\d.]+)\)$/, text),
  dimension: points,
  fontSize: points,
  number,
  fontWeight: wholeNumber,
};

// Name and value in a line, or undefined.
const cssLine = (line) => capture(/^ *--([\w-]+): (.*);(?: *\/\*[^*]*\*\/)?$/, line);
const scssLine = (line) => capture(/^\$([\w-]+): (.*);$/, line);
const composeLine = (line) => capture(/^ *val (\w+) = (.*)$/, line);
const swiftLine = (line) => capture(/^ *public static let (\w+) = (.*)$/, line);
function androidLine(line) {
  const [kind, name, value] =
    capture(/^ *<(\w+) name="(\w+)"(?: type="dimen" format="float")?>(.*)<\/\1>$/, line) ?? [];
  return kind && [name, `${kind}: ${value}`];
}

// The distance of neighbouring values that an output can tell apart; 0 where it has the decimals of the design.
const exact = { component: 0, alpha: 0, length: 0 };
const byte = 1 / 255;

export const outputs = [
  { name: "Style Dictionary's CSS", files: ["style-dictionary/brisel.css"], line: cssLine, values: cssOfBytes,
    nameOf: (path) => `brisel-${kebab(path)}`, step: { ...exact, component: byte } },
  { name: "Style Dictionary's SCSS", files: ["style-dictionary/brisel.scss"], line: scssLine, values: cssOfBytes,
    nameOf: (path) => `brisel-${kebab(path)}`, step: { ...exact, component: byte } },
  { name: "Style Dictionary's Android resources", line: androidLine, values: android,
    files: ["style-dictionary/brisel.xml", "style-dictionary/brisel_reals.xml"],
    nameOf: (path) => `brisel_${snake(path)}`, step: { component: byte, alpha: byte, length: 0.01 } },
  { name: "Style Dictionary's Compose object", files: ["style-dictionary/Brisel.kt"], line: composeLine,
    values: compose, nameOf: camel, step: { component: byte, alpha: byte, length: 0.01 } },
  { name: "Style Dictionary's Swift enumeration", files: ["style-dictionary/Brisel.swift"], line: swiftLine,
    values: swift, nameOf: camel, step: { component: 0.001, alpha: 0, length: 0.01 } },
  { name: "Terrazzo's CSS", files: ["terrazzo/brisel.css"], line: cssLine, values: cssOfPercents, nameOf: kebab,
    isShorthand: (value) => value.startsWith("var("), step: exact },
];

// What `brisel tokens --format css` writes.
export const ownCss = { name: "brisel's CSS", files: ["brisel.css"], line: cssLine, values: ownCssValues,
  nameOf: (path) => `brisel-${kebab(path)}`, isShorthand: (value) => /^\d+ [\d.]+px\//.test(value), step: exact };

const entries = (output, texts) =>
  texts.flatMap((text) => text.split("\n")).map(output.line).filter((entry) => entry !== undefined);

// The names of the typography tokens that an output has as a shorthand too, beside their five parts.
export function shorthands(output, texts) {
  return entries(output, texts).filter(([, value]) => output.isShorthand(value)).map(([name]) => name);
}

function holds({ values, step }, { type, value }, text) {
  const found = values[type](text);
  if (found === undefined) return false;
  if (type === "fontFamily") return found.join() === value.join();
  const within = (part, designed, distance) => Math.abs(part - designed) <= distance / 2 + 1e-12;
  if (type === "color") {
    return found.every((part, index) => within(part, value[index], index < 3 ? step.component : step.alpha));
  }
  return within(found, value, ["dimension", "fontSize"].includes(type) ? step.length : 0);
}

// What is wrong with an output: tokens that it lacks, has twice, has with another value, or that nobody designed.
export function faults(output, texts, tokens) {
  const wrong = [];
  const found = new Map();
  for (const [name, value] of entries(output, texts)) {
    if (output.isShorthand?.(value)) continue;
    if (found.has(name)) wrong.push(`${name} is there twice`);
    found.set(name, value);
  }
  for (const token of tokens) {
    if (!(token.type in output.values)) continue;
    const name = output.nameOf(token.path);
    if (!found.has(name)) wrong.push(`${name} is missing`);
    else if (!holds(output, token, found.get(name))) wrong.push(`${name} is ${found.get(name)}, not ${token.value}`);
    found.delete(name);
  }
  return [...wrong, ...[...found.keys()].map((name) => `${name} is no token`)];
}
