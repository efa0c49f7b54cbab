#include "gallery/guide/reference_names.h"

#include <algorithm>
#include <cctype>
#include <vector>

#include "gallery/guide/html.h"

namespace Brisel::Gallery {
namespace {

constexpr std::string_view kBreak = "<wbr>";
constexpr auto kNone = std::string_view::npos;

bool isUpper(char c) { return std::isupper(static_cast<unsigned char>(c)) != 0; }
bool isLower(char c) {
  return std::islower(static_cast<unsigned char>(c)) != 0 || std::isdigit(static_cast<unsigned char>(c)) != 0;
}
bool isWord(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

std::string_view lastPart(std::string_view name) {
  const auto scope = name.rfind("::");
  return scope == kNone ? name : name.substr(scope + 2);
}

// Before a hump ("with|Font|Size", "VLM|Brisel"), and behind an underscore; but not so that a letter stands alone.
bool mayBreakBefore(std::string_view name, std::size_t at) {
  if (at < 2 || at + 2 > name.size()) return false;
  if (name[at - 1] == '_') return true;
  return isUpper(name[at]) && (isLower(name[at - 1]) || (isUpper(name[at - 1]) && isLower(name[at + 1])));
}

// Where the arguments' bracket stands: behind a return type, whose own brackets stand between < and >.
std::size_t argumentsIn(std::string_view signature) {
  int angles = 0;
  for (std::size_t i = 0; i < signature.size(); ++i) {
    angles += signature[i] == '<' ? 1 : signature[i] == '>' ? -1 : 0;
    if (signature[i] == '(' && angles == 0) return i;
  }
  return kNone;
}

std::size_t closing(std::string_view text, std::size_t open) {
  int depth = 0;
  for (std::size_t i = open; i < text.size(); ++i) {
    depth += text[i] == '(' ? 1 : text[i] == ')' ? -1 : 0;
    if (depth == 0) return i;
  }
  return text.size();
}

struct Signature {
  std::string_view returns, arguments, qualifiers;  // "TypeStyle", "(double)", " const"
};

Signature parse(std::string_view text) {
  if (text.size() < 2) return {};
  const std::string_view inner = text.substr(1, text.size() - 2);
  std::size_t open = argumentsIn(inner);
  // A pointer to a member has a bracket of its own: "void (Class::*)(int)".
  if (open != kNone && inner[closing(inner, open) - 1] == '*') open = closing(inner, open) + 1;
  if (open == kNone) return {{}, text, {}};  // a constructor's: nothing but arguments; or the type of an object
  const std::size_t close = closing(inner, open);
  return {inner.substr(0, open), inner.substr(open, close + 1 - open), inner.substr(std::min(close + 1, inner.size()))};
}

std::string withoutScopes(std::string_view code) {
  std::string plain;
  for (std::size_t i = 0; i < code.size(); ++i) {
    if (code.substr(i).starts_with("::")) {
      while (!plain.empty() && isWord(plain.back())) plain.pop_back();
      ++i;
    } else {
      plain += code[i];
    }
  }
  return plain;
}

std::vector<std::string_view> typesIn(std::string_view list) {
  std::vector<std::string_view> types;
  int depth = 0;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < list.size(); ++i) {
    depth += list[i] == '<' || list[i] == '(' ? 1 : list[i] == '>' || list[i] == ')' ? -1 : 0;
    if (list[i] != ',' || depth > 0) continue;
    types.push_back(list.substr(begin, i - begin));
    begin = i + 1;
  }
  if (!list.empty()) types.push_back(list.substr(begin));
  return types;
}

// From 0 for types that are spelt differently to 1 for the same: a header may use a shorter name for a type, or a
// template's parameter.
double likeness(std::string_view a, std::string_view b) {
  const auto longest = static_cast<double>(std::max(a.size(), b.size()));
  if (a == b || longest == 0) return 1;
  const auto before = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin();
  const auto behind = std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend()).first - a.rbegin();
  return static_cast<double>(before + behind) / (2 * longest);
}

double likeness(const std::vector<std::string_view>& a, const std::vector<std::string_view>& b) {
  if (a.size() != b.size()) return -1;
  double sum = 0;
  for (std::size_t i = 0; i < a.size(); ++i) sum += likeness(a[i], b[i]);
  return sum;
}

}  // namespace

std::string nameMarkup(std::string_view name) {
  const std::string_view last = lastPart(name);
  std::string markup = codeMarkup(name.substr(0, name.size() - last.size()));
  if (!markup.empty()) markup += kBreak;
  markup += "<b>";
  for (std::size_t i = 0; i < last.size(); ++i) {
    if (mayBreakBefore(last, i)) markup += kBreak;
    markup += escapeHtml(last.substr(i, 1));
  }
  return markup + "</b>";
}

std::string codeMarkup(std::string_view code) {
  std::string markup;
  for (std::size_t i = 0; i < code.size(); ++i) {
    markup += escapeHtml(code.substr(i, 1));
    if (code[i] == ':' && i + 1 < code.size() && isWord(code[i + 1])) markup += kBreak;
  }
  return markup;
}

std::string sentenceMarkup(std::string_view sentence) {
  std::string markup;
  while (!sentence.empty()) {
    const auto open = sentence.find('`');
    const auto close = open == kNone ? kNone : sentence.find('`', open + 1);
    if (close == kNone) break;
    markup += escapeHtml(sentence.substr(0, open));
    markup += "<code>" + codeMarkup(sentence.substr(open + 1, close - open - 1)) + "</code>";
    sentence.remove_prefix(close + 1);
  }
  return markup + escapeHtml(sentence);
}

std::string fragmentOf(std::string_view name) {
  constexpr std::string_view kNamespace = "Brisel::";
  if (name.starts_with(kNamespace)) name.remove_prefix(kNamespace.size());
  std::string fragment;
  for (const char c : name) {
    if (isWord(c)) {
      fragment += c;
    } else if (!fragment.ends_with('-')) {
      fragment += '-';
    }
  }
  return fragment;
}

std::string argumentTypes(std::string_view signature) {
  const std::string_view arguments = parse(signature).arguments;
  if (arguments.size() < 2) return {};
  std::string types = withoutScopes(arguments.substr(1, arguments.size() - 2));
  for (const std::string_view word : {"const ", " const", " "}) {
    for (auto at = types.find(word); at != kNone; at = types.find(word)) types.erase(at, word.size());
  }
  return types == "void" ? std::string() : types;
}

std::string shownSignature(std::string_view signature) {
  const Signature parts = parse(signature);
  std::string shown(parts.arguments);
  shown += parts.qualifiers;
  if (!parts.returns.empty()) shown += " → " + std::string(parts.returns);
  return shown;
}

const ReferenceComment* commentOn(const PublishedName& published, PublishedEntry::Kind kind,
                                  std::span<const ReferenceComment> comments) {
  std::string name(published.name);
  if (kind == PublishedEntry::Kind::constructor) name += "::" + std::string(lastPart(published.name));
  const auto [first, last] =
      std::equal_range(comments.begin(), comments.end(), ReferenceComment{name, {}, {}, {}, {}},
                       [](const ReferenceComment& a, const ReferenceComment& b) { return a.name < b.name; });
  if (first == last) return nullptr;
  const std::string list = argumentTypes(published.signature);
  const std::vector<std::string_view> types = typesIn(list);
  return &*std::max_element(first, last, [&](const ReferenceComment& a, const ReferenceComment& b) {
    return likeness(types, typesIn(a.argumentTypes)) < likeness(types, typesIn(b.argumentTypes));
  });
}

}  // namespace Brisel::Gallery
