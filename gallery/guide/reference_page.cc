#include <algorithm>
#include <map>
#include <set>
#include <stdexcept>
#include <utility>

#include "gallery/guide/html.h"
#include "gallery/guide/pages.h"
#include "gallery/guide/published_names.h"
#include "gallery/guide/reference_comments.h"
#include "gallery/guide/reference_names.h"
#include "gallery/guide/site_files.h"

namespace Brisel::Gallery {
namespace {

// Where another page shows a name.
struct Place {
  const Page* page;
  const Item* item;
  bool isCatalogue;  // there is a row or a tile for each of its kind there; else a section tells of it

  std::string address() const { return page->file + "#" + item->identifier; }
};

bool isCall(std::string_view code) { return code.ends_with("()"); }

std::string_view withoutCall(std::string_view code) {
  if (isCall(code)) code.remove_suffix(2);
  return code;
}

std::string_view scopeOf(std::string_view name) {
  const auto scope = name.rfind("::");
  return scope == std::string_view::npos ? std::string_view() : name.substr(0, scope + 2);
}

using Entries = std::vector<const PublishedEntry*>;

// What the names on one interface begin with: their scope, or their prefix where they have none.
std::string_view sharedStart(const Entries& entries, PublishedName PublishedEntry::*side) {
  const std::string_view first = (entries.front()->*side).name;
  if (const std::string_view scope = scopeOf(first); !scope.empty()) return scope;
  std::size_t length = first.size();
  for (const PublishedEntry* entry : entries) {
    const std::string_view name = (entry->*side).name;
    while (!name.starts_with(first.substr(0, length))) --length;
  }
  return first.substr(0, length);
}

class ReferencePage {
 public:
  explicit ReferencePage(const std::vector<Page>& others) {
    page_.file = "reference.html";
    page_.name = "Reference";
    for (const Page& page : others) {
      for (const Item& item : page.items) {
        const bool isCatalogue = isCall(item.names.front());
        for (const std::string& name : item.names) places_.emplace(withoutCall(name), Place{&page, &item, isCatalogue});
      }
    }
  }

  Page make() && {
    std::string sections;
    for (const PublishedSubsystem& subsystem : publishedNames()) sections += section(subsystem);
    page_.markup =
        fillTemplate(siteFile("reference.html"), {{"count", std::to_string(count_)}, {"sections", sections}});
    return std::move(page_);
  }

 private:
  std::string section(const PublishedSubsystem& subsystem) {
    subsystem_ = subsystem.title;
    std::string groups;
    for (const PublishedGroup& each : subsystem.groups) groups += group(each);
    const std::string fragment = unique("", subsystem.title);
    page_.contents.emplace_back(fragment, subsystem.title);
    return fillTemplate(siteFile("reference_section.html"),
                        {{"id", fragment}, {"title", subsystem.title}, {"groups", groups}});
  }

  std::string group(const PublishedGroup& group) {
    count_ += group.entries.size();
    group_ = group.title;
    const std::string fragment = unique(std::string(subsystem_) + "-", group.title);
    headers_ = {mostCommonHeader(group, &PublishedEntry::value), mostCommonHeader(group, &PublishedEntry::object)};
    std::string rows, parts;
    Entries catalogue;
    const auto endCatalogue = [&] {
      if (!catalogue.empty()) parts += catalogueMarkup(catalogue);
      catalogue.clear();
    };
    const auto endRows = [&] {
      if (!rows.empty()) parts += fillTemplate(siteFile("reference_rows.html"), {{"group", fragment}, {"rows", rows}});
      rows.clear();
    };
    for (const PublishedEntry& entry : group.entries) {
      const Place* place = placeOf(entry);
      if (place != nullptr && place->isCatalogue) {
        endRows();
        if (!catalogue.empty() && !areOfOneCatalogue(*catalogue.front(), entry)) endCatalogue();
        catalogue.push_back(&entry);
      } else {
        endCatalogue();
        rows += row(entry, place);
      }
    }
    endRows();
    endCatalogue();
    return fillTemplate(siteFile("reference_group.html"), {{"id", fragment},
                                                           {"title", group.title},
                                                           {"header", headerMarkup(headers_.first)},
                                                           {"objectHeader", headerMarkup(headers_.second)},
                                                           {"parts", parts}});
  }

  const Place* placeOf(const PublishedEntry& entry) const {
    for (const std::string_view name : {entry.value.name, entry.object.name}) {
      if (const auto found = places_.find(name); found != places_.end() && !name.empty()) return &found->second;
    }
    return nullptr;
  }

  bool areOfOneCatalogue(const PublishedEntry& a, const PublishedEntry& b) const {
    return placeOf(a)->page == placeOf(b)->page && scopeOf(a.value.name) == scopeOf(b.value.name) &&
           scopeOf(a.object.name) == scopeOf(b.object.name);
  }

  // What the object interface forwards is said of the value.
  static std::string aboutMarkup(const PublishedEntry& entry) {
    for (const PublishedName& name : {entry.value, entry.object}) {
      const auto* comment = commentOn(name, entry.kind, referenceComments());
      if (comment != nullptr && !comment->sentence.empty()) return sentenceMarkup(comment->sentence);
    }
    return {};
  }

  // Many names that another page shows: no more than a link and a sentence for each, and closed.
  std::string catalogueMarkup(const Entries& entries) const {
    const PublishedEntry& first = *entries.front();
    std::string tiles;
    for (const PublishedEntry* entry : entries) {
      const std::string_view name = entry->value.name.empty() ? entry->object.name : entry->value.name;
      const std::string_view object = entry->value.name.empty() ? std::string_view() : entry->object.name;
      std::string other;
      const auto part = object.substr(scopeOf(object).size());
      if (!part.empty() && part != name.substr(scopeOf(name).size())) {
        other = fillTemplate(siteFile("reference_tile_object.html"), {{"name", nameMarkup(part)}});
      }
      tiles += fillTemplate(siteFile("reference_tile.html"), {{"address", placeOf(*entry)->address()},
                                                              {"name", nameMarkup(name.substr(scopeOf(name).size()))},
                                                              {"object", other},
                                                              {"about", aboutMarkup(*entry)}});
    }
    std::string scopes;
    for (const auto side : {&PublishedEntry::value, &PublishedEntry::object}) {
      const std::string_view scope = sharedStart(entries, side);
      if (scope.empty()) continue;
      if (!scopes.empty()) scopes += " and ";
      scopes += std::string(scope) + "…";
    }
    return fillTemplate(siteFile("reference_catalogue.html"), {{"count", std::to_string(entries.size())},
                                                               {"scopes", codeMarkup(scopes)},
                                                               {"page", placeOf(first)->page->name},
                                                               {"tiles", tiles}});
  }

  std::string row(const PublishedEntry& entry, const Place* place) {
    const auto* value = commentOn(entry.value, entry.kind, referenceComments());
    const auto* object = commentOn(entry.object, entry.kind, referenceComments());
    const std::string fragment = fragmentFor(entry);
    addItem(entry, fragment);
    std::string about = aboutMarkup(entry);
    if (place != nullptr) {
      about +=
          fillTemplate(siteFile("reference_place.html"), {{"address", place->address()}, {"page", place->page->name}});
    }
    return fillTemplate(siteFile("reference_row.html"),
                        {{"id", fragment},
                         {"value", nameCell(entry.value, entry.kind, value, headers_.first)},
                         {"object", nameCell(entry.object, entry.kind, object, headers_.second)},
                         {"about", about}});
  }

  static std::string nameCell(const PublishedName& name, PublishedEntry::Kind kind, const ReferenceComment* comment,
                              std::string_view groupHeader) {
    if (name.name.empty()) return {};
    std::string header;
    if (comment != nullptr && comment->header != groupHeader) header = headerMarkup(comment->header);
    const bool isDeclared = comment != nullptr && !comment->declaration.empty();
    const std::string declaration = isDeclared || kind != PublishedEntry::Kind::function
                                        ? std::string(isDeclared ? comment->declaration : name.signature)
                                        : shownSignature(name.signature);
    return fillTemplate(
        siteFile("reference_name.html"),
        {{"name", nameMarkup(name.name)}, {"declaration", codeMarkup(declaration)}, {"header", header}});
  }

  static std::string headerMarkup(std::string_view header) {
    return header.empty() ? std::string() : fillTemplate(siteFile("reference_header.html"), {{"header", header}});
  }

  static std::string_view mostCommonHeader(const PublishedGroup& group, PublishedName PublishedEntry::*side) {
    std::map<std::string_view, int> counts;
    for (const PublishedEntry& entry : group.entries) {
      if (const auto* comment = commentOn(entry.*side, entry.kind, referenceComments())) ++counts[comment->header];
    }
    const auto most = std::max_element(counts.begin(), counts.end(),
                                       [](const auto& a, const auto& b) { return a.second < b.second; });
    return most == counts.end() ? std::string_view() : most->first;
  }

  // Overloads behind the first are told apart by the types of their arguments.
  std::string fragmentFor(const PublishedEntry& entry) {
    const PublishedName& name = entry.value.name.empty() ? entry.object : entry.value;
    std::string fragment = fragmentOf(name.name);
    if (entry.kind == PublishedEntry::Kind::constructor) fragment += "-init";
    if (fragments_.insert(fragment).second) return fragment;
    fragment += "-" + fragmentOf(argumentTypes(name.signature));
    while (fragment.ends_with('-')) fragment.pop_back();
    if (fragments_.insert(fragment).second) return fragment;
    throw std::logic_error("two entries of the reference are called " + fragment);
  }

  std::string unique(std::string prefix, std::string_view title) {
    prefix += title;
    std::string fragment;
    for (const char c : prefix) {
      if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
        fragment += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
      } else if (!fragment.ends_with('-')) {
        fragment += '-';
      }
    }
    if (fragments_.insert(fragment).second) return fragment;
    throw std::logic_error("two headings of the reference are called " + fragment);
  }

  // Search finds each name once: here what no other page shows, and of overloads the first.
  void addItem(const PublishedEntry& entry, const std::string& fragment) {
    std::vector<std::string> names;
    for (const std::string_view name : {entry.value.name, entry.object.name}) {
      if (!name.empty() && !places_.contains(name) && found_.insert(name).second) names.emplace_back(name);
    }
    if (!names.empty()) page_.items.push_back({fragment, std::string(group_), {}, std::move(names)});
  }

  Page page_;
  std::map<std::string_view, Place> places_;
  std::set<std::string_view> found_;
  std::set<std::string> fragments_;
  std::string_view subsystem_, group_;
  std::pair<std::string_view, std::string_view> headers_;
  std::size_t count_ = 0;
};

}  // namespace

Page makeReferencePage(const std::vector<Page>& others) { return ReferencePage(others).make(); }

}  // namespace Brisel::Gallery
