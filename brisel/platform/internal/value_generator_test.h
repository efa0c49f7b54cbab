// Values for property tests.
#pragma once

#include <string>
#include <vector>

#include <rapidcheck.h>

#include "brisel/platform/value.h"

namespace Brisel::Platform {

/// Values of all kinds but objects, from a small world in which equal ones are common; `depth` levels of containers.
inline rc::Gen<Value> genValue(int depth) {
  const rc::Gen<Value> simple = rc::gen::element<Value>(nullptr, false, true, 0, 1, 2, -1, 0.0, 1.0, 2.0, 0.5, "", "a",
                                                        "b", "1", std::int64_t{1} << 62, 4'611'686'018'427'387'904.0,
                                                        UIColor::initWithWhite(1, 1), UIColor::initWithRed(1, 1, 1, 1));
  if (depth == 0) return simple;
  const auto elements = rc::gen::resize(3, rc::gen::container<std::vector<Value>>(genValue(depth - 1)));
  const rc::Gen<Value> list = rc::gen::map(elements, [](std::vector<Value> values) { return Value(List(values)); });
  const rc::Gen<Value> dictionary = rc::gen::map(elements, [](const std::vector<Value>& values) {
    std::vector<DictionaryEntry> entries;
    for (std::size_t i = 0; i + 1 < values.size(); i += 2) entries.push_back({values[i], values[i + 1]});
    return Value(Dictionary(entries));
  });
  return rc::gen::oneOf(simple, simple, list, dictionary);
}

}  // namespace Brisel::Platform
