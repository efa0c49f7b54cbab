#include "gallery/arguments.h"

namespace Brisel::Gallery {
namespace {

struct Topic {
  std::string_view command, text;
};

constexpr Topic kTopics[] = {
    {"",
     R"(Usage: brisel <command> [options]

  brisel gallery --out DIR             write the style guide
  brisel text "…" -o FILE.png          draw one text
  brisel icon NAME -o FILE.png         draw one icon
  brisel icons [--json]                list all icons
  brisel compare A.png B.png           tell whether two pictures look the same
  brisel scale FILE.png 8 -o FILE.png  enlarge a picture to look at its pixels
  brisel tokens --format FORMAT        export the tokens: dtcg, css or json
  brisel contrast [--min RATIO]        list the contrast within the colour sets
  brisel window                        show views that follow the text size, live

  brisel <command> --help              what a command takes
  brisel --version

Exit status: 0 done, 1 failed, 2 not understood. That of compare: 0 equal, 1 different,
2 trouble.
)"},
    {"gallery",
     R"(Usage: brisel gallery --out DIR

Writes the style guide, a site that opens from its index.html. It appears in DIR all
at once when it is complete. An older style guide there is replaced; any other
directory must be empty. DIR itself cannot be a mount point.

  -o, --out DIR           where to
)"},
    {"text",
     R"(Usage: brisel text "…" [options] -o FILE.png

Draws one text in a type style.

  -o, --out FILE          the picture, a PNG
      --style NAME        ballad, balladBold, bass … (ballad)
      --category NAME     a content-size category: extraSmall … large …
                          accessibilityExtraExtraExtraLarge, or its platform name (large)
      --width POINTS      wraps the text there (as wide as it takes)
      --scale NUMBER      pixels a point (1)
      --color COLOR       of the text: a palette name or #rrggbb, #rrggbbaa (the theme's text)
      --background COLOR  behind it (the theme's ground)
)"},
    {"icon",
     R"(Usage: brisel icon NAME [options] -o FILE.png

Draws one icon: heart, Heart or VLMBriselIconHeart. `brisel icons` lists them.

  -o, --out FILE          the picture, a PNG
      --size POINTS       of the square that the icon stands in (24)
      --scale NUMBER      pixels a point (1)
      --design DESIGN     x16 or x24, the design for 16 or for 24 points (x16 up to 16 points)
      --color COLOR       of the icon: a palette name or #rrggbb, #rrggbbaa (the theme's text)
      --background COLOR  behind it (none)
)"},
    {"icons",
     R"(Usage: brisel icons [--json]

Lists all icons in the order of their numbers: number, accessor, constant, the code
points of both designs, and whether they are to be mirrored from right to left.

      --json              as a JSON list of objects: accessor, cppAccessor, name, constant,
                          number, x16, x24, autoMirror
)"},
    {"compare",
     R"(Usage: brisel compare A.png B.png [options]

Tells whether two pictures look the same, and in one line how far they differ.

      --accuracy NUMBER   how far a channel may differ, from 0 to 1 of full scale (0)
      --diff FILE         draws where they differ: the first picture dimmed, and on it each
                          pixel that differs too far, in pink; in yellow those that only one
                          of the pictures has

Exit status: 0 equal, 1 different, 2 trouble.
)"},
    {"scale",
     R"(Usage: brisel scale FILE.png FACTOR [options] -o FILE.png

Enlarges a picture by a whole number, each pixel becoming a square.

  -o, --out FILE          the enlarged picture, a PNG
      --grid COLOR        of lines between the pixels: a palette name or #rrggbb, #rrggbbaa
                          (none); in a picture that is not square one direction has too few
      --interpolation KIND  none, low, medium or high (none)
)"},
    {"tokens",
     R"(Usage: brisel tokens --format dtcg -o DIR
       brisel tokens --format css [-o FILE]
       brisel tokens --format json [-o FILE]

Exports palette, older names, opacities, spacers, themes, campaigns, type styles and icons
for other tools.

      --format FORMAT     dtcg: Design Tokens files, version 2025.10, one a family and one of
                          them all; css: custom properties; json: a list for scripts
  -o, --out DIR           where dtcg files go: they appear there all at once. An older export
                          there, as it was written and nothing beside it, is replaced; any
                          other directory must be empty; DIR itself cannot be a mount point
  -o, --out FILE          where the others go (standard output)
)"},
    {"contrast",
     R"(Usage: brisel contrast [options]

Lists how text and essential colours (icons, controls) stand out from each background of
their colour set, in the theme's ten sets and the fifteen campaign sets: the contrast
ratio of the Web Content Accessibility Guidelines (WCAG) 2.2, cut off after two decimals,
and what it suffices for.

  AAA    text of any size, at the higher demand (7)
  AA     text of any size (4.5); of essential colours: icons and controls (3)
  large  text of 18 points, or bold of 14 (3)
  fail   nothing of these

Contrast is the ratio of the relative luminances of two colours, taken as designed. A
translucent background lies over the background.base of its set; where that is translucent
too, each background lies on black media and on white media, and the poorer ratio counts. A
translucent foreground lies over the background that results. Colours are mixed component by
component, as encoded.

      --set NAME          one colour set, such as base or tierAurel (all)
      --role ROLE         text or essential (both)
      --json              as a JSON object: method, guidelines, and the pairs as objects:
                          set, foreground, background, ratio (in full), level
      --min RATIO         from 1 to 21: fails where a listed pair is below, and names those
                          pairs on standard error

Exit status: 0 done, 1 a pair is below --min, 2 not understood.
)"},
    {"window",
     R"(Usage: brisel window [options]

Opens a window of the library's views: text in several styles and scripts, fields, buttons
and icons. Whoever changes the text size, the colours or the direction sees all of them
follow. On GNOME and desktops with its settings, the text size is the desktop's text
scaling factor, also when that changes.

  Left, Right, or the slider    text size             0   the usual one
  C, Shift C                    next colour set, the one before
  D                             from left to right, from right to left
  Up, Down, Page Up, Page Down, Home, End, wheel      scroll
  Click                         presses a button, which is chosen, or no longer
  Escape                        close

      --size WIDTHxHEIGHT     in points (960x720); a width alone: as high as what it shows
      --scale NUMBER          pixels a point (those of the display; 1 for a screenshot)
      --text-size CATEGORY    instead of the desktop's, and for good: extraSmall … large …
                              accessibilityExtraExtraExtraLarge, or its platform name
      --set NAME              a colour set, such as base or tierAurel (base)
      --direction DIRECTION   ltr or rtl, from left to right or from right to left (ltr)
      --screenshot FILE       writes what the window would show as a PNG, and opens none. It
                              needs no display, and does not ask the desktop (large)
)"},
};

}  // namespace

std::string_view helpText(std::string_view topic) {
  for (const Topic& entry : kTopics) {
    if (entry.command == topic) return entry.text;
  }
  throw UsageError("there is no help on \"" + std::string(topic) + "\"");
}

}  // namespace Brisel::Gallery
