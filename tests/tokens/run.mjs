// Exports the tokens, has Style Dictionary and Terrazzo read them, and finds every token unspoiled in what they write.
// Usage: node tests/tokens/run.mjs [program] [directory for what is written]
// Needs `npm ci --prefix tests/tokens`, which brings the Node that the readers need and this is to be run by.
//
// The format's official JSON schema is not used, as no npm package carries it: Terrazzo's rules stand for it.

import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { mkdirSync, readFileSync, rmSync, symlinkSync, writeFileSync } from "node:fs";
import { join, resolve } from "node:path";
import { fileURLToPath } from "node:url";
import { designedTokens } from "./design.mjs";
import { faults, outputs, ownCss, shorthands } from "./outputs.mjs";

const program = resolve(process.argv[2] ?? "build/release/bin/brisel");
// Named so that what takes a path for a pattern or for a warning is found out, wherever the checkout is.
const directory = resolve(process.argv[3] ?? "out/tokens", "warning [1] (b)");
const here = fileURLToPath(new URL(".", import.meta.url));

let passed = 0;
let failed = 0;

function test(name, body) {
  try {
    body();
    passed += 1;
    console.log(`ok - ${name}`);
  } catch (error) {
    failed += 1;
    console.log(`not ok - ${name}\n${String(error.stack ?? error).slice(0, 4000).replace(/^/gm, "    ")}`);
  }
}

function run(command, parameters, cwd = directory) {
  const { status, stdout, stderr, error } = spawnSync(command, parameters,
    { cwd, encoding: "utf8", maxBuffer: 1 << 26, env: { ...process.env, NO_COLOR: "1" } });
  if (error) throw error;
  return { status, text: (stdout + stderr).replaceAll(directory, ".") };
}

// A reader works where the tokens are, by relative paths.
const reader = (script, config) => (cwd = directory) => run(process.execPath,
  [join(here, "node_modules", script), "build", "--config", join(here, config)], cwd);
const styleDictionary = reader("style-dictionary/bin/style-dictionary.js", "style-dictionary.config.mjs");
const terrazzo = reader("@terrazzo/cli/bin/cli.js", "terrazzo.config.mjs");

// An export with one thing changed for the worse.
function exportSpoiledBy(change) {
  const tokens = join(directory, "spoiled");
  const whole = JSON.parse(read("dtcg/brisel.tokens.json"));
  change(whole);
  rmSync(tokens, { recursive: true, force: true });
  mkdirSync(join(tokens, "dtcg"), { recursive: true });
  // Style Dictionary reads all files but that of the whole, Terrazzo that alone.
  for (const name of ["brisel", "families"]) {
    writeFileSync(join(tokens, `dtcg/${name}.tokens.json`), JSON.stringify(whole, null, 1));
  }
  return tokens;
}

const read = (file) => readFileSync(join(directory, file), "utf8");
const texts = (output) => output.files.map(read);
const families = ["palette", "legacy", "opacity", "spacer", "theme", "campaign", "typography", "icon"];

rmSync(directory, { recursive: true, force: true });
mkdirSync(directory, { recursive: true });
// Terrazzo looks for what its configuration imports from the working directory alone.
symlinkSync(join(here, "node_modules"), join(directory, "node_modules"));

let tokens = [];
test("the tokens are exported, one file a family and one of all", () => {
  const { status, text } = run(program, ["tokens", "--format", "dtcg", "-o", join(directory, "dtcg")]);
  assert.equal(status, 0, text);
  const whole = JSON.parse(read("dtcg/brisel.tokens.json"));
  assert.deepEqual(Object.keys(whole), families);
  for (const family of families) {
    assert.deepEqual(JSON.parse(read(`dtcg/${family}.tokens.json`)), { [family]: whole[family] });
  }
  tokens = designedTokens(whole.typography);
});

test("the design's tables are read whole", () => {
  const count = (family) => tokens.filter(({ path }) => path[0] === family).length;
  assert.deepEqual(Object.fromEntries(families.map((family) => [family, count(family)])), { palette: 252, legacy: 60,
    opacity: 6, spacer: 13, theme: 10 * 28, campaign: 15 * 28, typography: 19 * 12 * 5, icon: 328 * 2 });
  const numbers = tokens.filter(({ type }) => type !== "fontFamily").flatMap(({ value }) => value);
  assert.ok(numbers.every(Number.isFinite));
});

test("Style Dictionary builds six platforms without a warning", () => {
  const { status, text } = styleDictionary();
  assert.equal(status, 0, text);
  assert.doesNotMatch(text, /warn|collision|error|not supported/i);
});

test("Terrazzo builds the CSS and finds every value valid", () => {
  const { status, text } = terrazzo();
  assert.equal(status, 0, text);
  assert.doesNotMatch(text, /lint|warn|error/i);
});

for (const output of outputs) {
  test(`every token stands unspoiled in ${output.name}, and nothing else`, () => {
    assert.deepEqual(faults(output, texts(output), tokens), []);
  });
}

test("nothing that the readers wrote is an object in brackets or not a number", () => {
  for (const file of [...outputs.flatMap(({ files }) => files), "style-dictionary/brisel.json"]) {
    assert.doesNotMatch(read(file), /\[object|undefined|NaN/, file);
  }
});

const at = (path) => path.split(".");
// What no output may hide, as a token that is given the value of another: an alpha, a size times sixteen, a type size.
const spoilings = [
  ["another alpha", "theme.dark.overMedia.background.press", "theme.dark.overMedia.background.highlight"],
  ["another colour", "palette.gray7", "palette.gray10"],
  ["a spacing times sixteen", "spacer.x4", "spacer.x64"],
  ["the type size of another category", "typography.ballad.small.fontSize", "typography.ballad.medium.fontSize"],
];

for (const output of outputs) {
  test(`a token spoiled in ${output.name} is found`, () => {
    const whole = texts(output).join("\n").split("\n");
    const lineOf = (name) => whole.findIndex((line) => output.line(line)?.[0] === name);
    for (const [what, path, otherPath] of spoilings) {
      const name = output.nameOf(at(path));
      const spoiled = [...whole];
      const otherName = output.nameOf(at(otherPath));
      spoiled[lineOf(name)] = whole[lineOf(otherName)].replace(otherName, name);
      const found = faults(output, [spoiled.join("\n")], tokens);
      assert.equal(found.length, 1, `${what}: ${found}`);
      assert.ok(found[0].startsWith(`${name} is `), `${what}: ${found}`);
    }
    const lost = output.nameOf(at("legacy.blueFacebook"));
    assert.deepEqual(faults(output, [whole.toSpliced(lineOf(lost), 1).join("\n")], tokens), [`${lost} is missing`]);
  });
}

test("the properties that brisel writes itself bear the names that both readers give theirs", () => {
  const { status, text } = run(program, ["tokens", "--format", "css", "-o", join(directory, "brisel.css")]);
  assert.equal(status, 0, text);
  assert.deepEqual(faults(ownCss, texts(ownCss), tokens), []);
  // Terrazzo gives no prefix; Style Dictionary, told to write the parts, writes no shorthands.
  const terrazzoCss = outputs.find(({ name }) => name === "Terrazzo's CSS");
  const names = shorthands(terrazzoCss, texts(terrazzoCss)).map((name) => `brisel-${name}`);
  assert.equal(names.length, 19 * 12);
  assert.deepEqual(shorthands(ownCss, texts(ownCss)).sort(), names.sort());
});

test("Terrazzo refuses what the format does not allow", () => {
  const { status, text } = terrazzo(exportSpoiledBy(({ palette, opacity, spacer, typography }) => {
    palette.gray7.$value.components[0] = 18;
    palette.gray10.$value.alpha = 54;
    palette.gray15.$value.colorSpace = "display-p3";
    opacity.x10.$value = "0.1";
    spacer.x4.$value.unit = "rem";
    delete spacer.x8.$type;
    typography.ballad.large.$value.fontWeight = 1200;
    delete typography.viola.large.$value.lineHeight;
  }));
  assert.equal(status, 1, text);
  for (const refusal of ["valid-color: Invalid range", "valid-color: Alpha 54 not in range",
    "colorspace: Color palette.gray15", "valid-number", "valid-dimension: Unit rem not allowed", "required-type",
    "valid-font-weight", 'valid-typography: Missing required property "lineHeight"']) {
    assert.ok(text.includes(`core/${refusal}`), `${refusal} is not in\n${text}`);
  }
});

test("Style Dictionary refuses names that become one", () => {
  const { status, text } = styleDictionary(exportSpoiledBy(({ palette }) => {
    palette["opacity black10"] = palette.opacityBlack30;
  }));
  assert.equal(status, 1, text);
  assert.match(text, /collisions were found/);
});

rmSync(join(directory, "spoiled"), { recursive: true, force: true });
console.log(`${passed} passed, ${failed} failed`);
process.exit(failed === 0 ? 0 : 1);
