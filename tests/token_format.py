#!/usr/bin/env python3
"""What `brisel tokens --format dtcg` writes obeys the Design Tokens Format Module 2025.10
(https://www.designtokens.org/tr/2025.10/), and what the export promises beyond it: a type on every token, values in
full without references, and no braces in texts, which some readers take for references there too.

`problems` is the checker. It knows the types that are exported, and refuses the format's other ones. That it can fail
is proved by a bad document for each of its rules.

Usage: token_format.py <the program>
"""

import json
import math
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

FAMILIES = ["palette", "legacy", "opacity", "spacer", "theme", "campaign", "typography", "icon"]

TOKEN_KEYS = {"$value", "$type", "$description", "$extensions", "$deprecated"}
GROUP_KEYS = {"$type", "$description", "$extensions", "$deprecated"}
REFERENCE_KEYS = {"$ref", "$root", "$extends"}  # of the format, not of the export


class Refused(Exception):
    pass


def is_number(value):
    return isinstance(value, (int, float)) and not isinstance(value, bool) and math.isfinite(value)


def members_problems(value, required, optional=()):
    if not isinstance(value, dict):
        return ["is no object"]
    return ([f"lacks {name}" for name in required if name not in value] +
            [f"has an unknown member {name}" for name in value if name not in (*required, *optional)])


def number_problems(value):
    return [] if is_number(value) else ["is no number"]


def color_problems(value):
    # The format lets alpha and hex out, alpha being 1 then; the export never does.
    found = members_problems(value, ("colorSpace", "components", "alpha", "hex"))
    if found:
        return found
    if value["colorSpace"] != "srgb":
        found.append("is in another colour space than srgb")
    components = value["components"]
    if not isinstance(components, list) or len(components) != 3:
        return found + ["has not three components"]
    if not all(is_number(component) and 0 <= component <= 1 for component in components):
        return found + ["has a component that is no number from 0 to 1"]
    if not is_number(value["alpha"]) or not 0 <= value["alpha"] <= 1:
        found.append("has an alpha that is no number from 0 to 1")
    if not isinstance(value["hex"], str) or not re.fullmatch("#[0-9a-fA-F]{6}", value["hex"]):
        found.append("has a hex that is not of six digits")
    elif [int(value["hex"][i:i + 2], 16) for i in (1, 3, 5)] != [math.floor(c * 255 + 0.5) for c in components]:
        found.append("has a hex of another colour")
    return found


def dimension_problems(value):
    found = members_problems(value, ("value", "unit"))
    if found:
        return found
    if not is_number(value["value"]):
        found.append("has a value that is no number")
    if value["unit"] not in ("px", "rem"):
        found.append("has a unit that is neither px nor rem")
    return found


def font_family_problems(value):
    names = value if isinstance(value, list) else [value]
    return [] if names and all(isinstance(name, str) and name for name in names) else ["has no font family"]


def font_weight_problems(value):
    return [] if is_number(value) and 1 <= value <= 1000 else ["has a weight that is no number from 1 to 1000"]


def typography_problems(value):
    parts = {"fontFamily": font_family_problems, "fontSize": dimension_problems, "fontWeight": font_weight_problems,
             "letterSpacing": dimension_problems, "lineHeight": number_problems}
    found = members_problems(value, tuple(parts))
    if found:
        return found
    return [f"{part} {problem}" for part, check in parts.items() for problem in check(value[part])]


VALUE_CHECKS = {"color": color_problems, "dimension": dimension_problems, "number": number_problems,
                "typography": typography_problems}


def property_problems(item):
    """Of what tokens and groups have in common."""
    if not isinstance(item.get("$description", ""), str):
        yield "has a description that is no text"
    if not isinstance(item.get("$deprecated", False), (bool, str)):
        yield "has a deprecation that is neither a flag nor a text"
    extensions = item.get("$extensions", {})
    if not isinstance(extensions, dict):
        yield "has extensions that are no object"
    elif not all(re.fullmatch(r"[^.]+(\.[^.]+)+", key) for key in extensions):
        yield "has an extension without a vendor's domain"


def text_problems(value):
    """Braces anywhere below: in values they would be references, in texts some readers take them for such."""
    if isinstance(value, str):
        return ["has braces in a text"] if re.search("[{}]", value) else []
    items = value.values() if isinstance(value, dict) else value if isinstance(value, list) else []
    return [problem for item in items for problem in text_problems(item)]


def token_problems(token):
    if any(not name.startswith("$") for name in token):
        yield "is a token and a group at once"
    for name in sorted(name for name in token if name.startswith("$") and name not in TOKEN_KEYS):
        yield f"{'refers elsewhere by' if name in REFERENCE_KEYS else 'has an unknown property'} {name}"
    yield from property_problems(token)
    yield from (problem for name in TOKEN_KEYS & token.keys() for problem in text_problems(token[name]))
    if "$type" not in token:
        yield "has no type"
    elif token["$type"] not in VALUE_CHECKS:
        yield f"has the type {token['$type']}"
    else:
        yield from VALUE_CHECKS[token["$type"]](token["$value"])


def group_problems(group, path=()):
    """All problems of a group and below, each as "path: what is wrong"."""
    place = ".".join(path) or "document"
    own = {name: value for name, value in group.items() if name.startswith("$")}
    for name in own:
        if name not in GROUP_KEYS:
            yield f"{place}: {'refers elsewhere by' if name in REFERENCE_KEYS else 'has an unknown property'} {name}"
    yield from (f"{place}: {problem}" for problem in property_problems(own))
    yield from (f"{place}: {problem}" for problem in text_problems(own))
    spellings = {}
    for name, member in group.items():
        if name in own:
            continue
        here = f"{place}.{name}" if path else name
        if not name or re.search("[{}.]", name):
            yield f"{here}: has a forbidden name"
        if spellings.setdefault(name.lower(), name) != name:
            yield f"{here}: differs from {spellings[name.lower()]} in case alone"
        if not isinstance(member, dict):
            yield f"{here}: is neither a group nor a token"
        elif "$value" in member:
            yield from (f"{here}: {problem}" for problem in token_problems(member))
        else:
            yield from group_problems(member, (*path, name))


def unique_members(pairs):
    members = dict(pairs)
    if len(members) != len(pairs):
        raise Refused("a name occurs twice in an object")
    return members


def no_constant(name):
    raise Refused(f"{name} is no number of JSON")


def parse(text):
    return json.loads(text, object_pairs_hook=unique_members, parse_constant=no_constant)


def problems(text):
    """What is wrong with the text of a tokens file."""
    try:
        document = parse(text)
    except (ValueError, Refused) as error:
        return [f"document: {error}"]
    return list(group_problems(document)) if isinstance(document, dict) else ["document: is no object"]


# --- The checker ---

COLOR = {"colorSpace": "srgb", "components": [0.071, 0, 1], "alpha": 0.54, "hex": "#1200FF"}
PIXELS = {"value": 16, "unit": "px"}
TYPE = {"fontFamily": ["Tondal", "sans-serif"], "fontSize": PIXELS, "fontWeight": 400,
        "letterSpacing": {"value": 0, "unit": "px"}, "lineHeight": 1.2}
NUMBER = {"$type": "number", "$value": 1}

GOOD = [
    {},
    {"a": {"$description": "A group.", "$deprecated": True, "b c": NUMBER, "b-c": NUMBER}},
    {"a": {"$type": "color", "$value": COLOR, "$description": "A colour.", "$deprecated": "Take b instead.",
           "$extensions": {"org.example": {"any": [1, None, "thing"]}}}},
    {"a": {"$type": "dimension", "$value": {"value": -1.5, "unit": "rem"}}},
    {"a": {"$type": "typography", "$value": {**TYPE, "fontFamily": "Tondal"}}},
]


def color(**changes):
    return {"a": {"$type": "color", "$value": {**COLOR, **changes}}}


def dimension(value):
    return {"a": {"$type": "dimension", "$value": value}}


def typography(**changes):
    return {"a": {"$type": "typography", "$value": {**TYPE, **changes}}}


def without(name, value):
    return {key: part for key, part in value.items() if key != name}


BAD = [
    ([], "document: is no object"),
    ({"a": 3}, "a: is neither a group nor a token"),
    ({"a": {"$value": 1}}, "a: has no type"),
    ({"a": {"$type": "number", "b": {"$value": 1}}}, "a.b: has no type"),  # the format inherits types, readers do not
    ({"a": {**NUMBER, "$type": "opacity"}}, "a: has the type opacity"),
    ({"a": {**NUMBER, "b": NUMBER}}, "a: is a token and a group at once"),
    ({"a": {**NUMBER, "$unit": "px"}}, "a: has an unknown property $unit"),
    ({"a": {**NUMBER, "$ref": "#/b"}}, "a: refers elsewhere by $ref"),
    ({"a": {"$root": NUMBER}}, "a: refers elsewhere by $root"),
    ({"a": {"$extends": "b", "c": NUMBER}}, "a: refers elsewhere by $extends"),
    ({"$name": "x"}, "document: has an unknown property $name"),
    ({"a": {"$b": NUMBER}}, "a: has an unknown property $b"),
    ({"a": {"": NUMBER}}, "a.: has a forbidden name"),
    ({"a.b": NUMBER}, "a.b: has a forbidden name"),
    ({"a{": NUMBER}, "a{: has a forbidden name"),
    ({"a": {"b}": {"c": NUMBER}}}, "a.b}: has a forbidden name"),
    ({"a": {"airPlay": NUMBER, "airplay": NUMBER}}, "a.airplay: differs from airPlay in case alone"),
    ({"A": {"b": NUMBER}, "a": {"c": NUMBER}}, "a: differs from A in case alone"),
    ({"a": {**NUMBER, "$description": 3}}, "a: has a description that is no text"),
    ({"a": {"$description": None}}, "a: has a description that is no text"),
    ({"a": {**NUMBER, "$deprecated": 1}}, "a: has a deprecation that is neither a flag nor a text"),
    ({"a": {**NUMBER, "$extensions": []}}, "a: has extensions that are no object"),
    ({"a": {**NUMBER, "$extensions": {"brisel": 1}}}, "a: has an extension without a vendor's domain"),
    ({"a": {**NUMBER, "$deprecated": "Take {b} instead."}}, "a: has braces in a text"),
    ({"a": {**NUMBER, "$extensions": {"x.y": {"z": ["UIColor{}"]}}}}, "a: has braces in a text"),
    ({"a": {"$description": "{b}"}}, "a: has braces in a text"),
    ({"a": {"$type": "number", "$value": "1"}}, "a: is no number"),
    ({"a": {"$type": "number", "$value": True}}, "a: is no number"),
    ({"a": {"$type": "color", "$value": "#1200FF"}}, "a: is no object"),
    ({"a": {"$type": "color", "$value": without("components", COLOR)}}, "a: lacks components"),
    ({"a": {"$type": "color", "$value": without("alpha", COLOR)}}, "a: lacks alpha"),
    (color(colorspace="srgb"), "a: has an unknown member colorspace"),
    (color(colorSpace="sRGB"), "a: is in another colour space than srgb"),
    (color(components=[0, 0, 0, 0.5]), "a: has not three components"),
    (color(components=[300, 0, 1]), "a: has a component that is no number from 0 to 1"),
    (color(components=[-0.1, 0, 1]), "a: has a component that is no number from 0 to 1"),
    (color(components=["none", 0, 1]), "a: has a component that is no number from 0 to 1"),
    (color(alpha=54), "a: has an alpha that is no number from 0 to 1"),
    (color(alpha="54%"), "a: has an alpha that is no number from 0 to 1"),
    (color(hex="#1200FF8A"), "a: has a hex that is not of six digits"),
    (color(hex="#12F"), "a: has a hex that is not of six digits"),
    (color(hex="#1200FE"), "a: has a hex of another colour"),
    (dimension("16px"), "a: is no object"),
    (dimension({"value": 0}), "a: lacks unit"),
    (dimension({"value": "16", "unit": "px"}), "a: has a value that is no number"),
    (dimension({"value": 16, "unit": "pt"}), "a: has a unit that is neither px nor rem"),
    *(({"a": {"$type": "typography", "$value": without(part, TYPE)}}, f"a: lacks {part}") for part in TYPE),
    (typography(textCase="upper"), "a: has an unknown member textCase"),
    (typography(lineHeight={"value": 19.2, "unit": "px"}), "a: lineHeight is no number"),
    (typography(fontSize=16), "a: fontSize is no object"),
    (typography(letterSpacing={"value": 0}), "a: letterSpacing lacks unit"),
    (typography(fontWeight="Book"), "a: fontWeight has a weight that is no number from 1 to 1000"),
    (typography(fontFamily=[]), "a: fontFamily has no font family"),
]


class Checker(unittest.TestCase):
    def test_accepts_good_documents(self):
        for document in GOOD:
            with self.subTest(document=document):
                self.assertEqual(problems(json.dumps(document)), [])

    def test_refuses_each_bad_document_for_its_own_reason_alone(self):
        for document, reason in BAD:
            with self.subTest(reason=reason):
                self.assertEqual(problems(json.dumps(document)), [reason])

    def test_refuses_what_is_no_json(self):
        self.assertEqual(problems('{"a": {"$type": "number", "$value": NaN}}'), ["document: NaN is no number of JSON"])
        self.assertEqual(problems('{"a": {}, "a": {}}'), ["document: a name occurs twice in an object"])
        self.assertRegex(problems('{"a": ')[0], "^document: ")


# --- The export ---

class Export(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name) / "tokens"
        subprocess.run([PROGRAM, "tokens", "--format", "dtcg", "-o", cls.folder], check=True, timeout=60)
        cls.texts = {path.name: path.read_text(encoding="utf-8") for path in cls.folder.iterdir()}

    def test_obeys_the_format(self):
        for name, text in self.texts.items():
            self.assertEqual(problems(text), [], name)

    def test_has_a_file_for_each_family_and_one_of_them_all(self):
        self.assertEqual(sorted(self.texts), sorted(f"{name}.tokens.json" for name in [*FAMILIES, "brisel"]))
        whole = parse(self.texts["brisel.tokens.json"])
        self.assertEqual(list(whole), FAMILIES)
        for family in FAMILIES:
            self.assertEqual(parse(self.texts[f"{family}.tokens.json"]), {family: whole[family]})

    def test_is_the_same_each_time(self):
        subprocess.run([PROGRAM, "tokens", "--format", "dtcg", "-o", self.folder], check=True, timeout=60)
        self.assertEqual({path.name: path.read_text(encoding="utf-8") for path in self.folder.iterdir()}, self.texts)


if __name__ == "__main__":
    PROGRAM = pathlib.Path(sys.argv.pop()).resolve()
    unittest.main(argv=sys.argv[:1])
