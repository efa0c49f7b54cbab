#include "gallery/exports/dtcg.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <vector>

#include "gallery/exports/families.h"
#include "gallery/exports/json_value.h"
#include "gallery/exports/names.h"
#include "gallery/interruption.h"
#include "gallery/output_directory.h"

namespace Brisel::Gallery {
namespace {

namespace fs = std::filesystem;

Json tokenObject(const Token& token) {
  Json own = Json::object();
  if (!token.valueInterface.empty()) own["valueInterface"] = token.valueInterface;
  if (!token.objectInterface.empty()) own["objectInterface"] = token.objectInterface;
  own.update(token.facts);
  Json object{{"$type", tokenType(token.value)}, {"$value", tokenValue(token.value)}};
  if (token.deprecated) object["$deprecated"] = deprecation(token);
  object["$extensions"][std::string(kExportMark)] = std::move(own);
  return object;
}

// A group, or a token where it has one. Not JSON: a tree of that copies all that it holds whenever a group grows.
struct Node {
  std::string name;
  const Token* token = nullptr;
  std::vector<Node> members = {};

  Node& member(const std::string& called) {
    const auto place =
        std::find_if(members.begin(), members.end(), [&called](const Node& node) { return node.name == called; });
    return place != members.end() ? *place : members.emplace_back(Node{called});
  }
};

// Groups are indented and each token is a line, which people and tools that compare versions can read.
void addGroup(std::string& text, const Node& group, const std::string& indent) {
  const std::string inner = indent + "  ";
  text += "{";
  std::string_view separator = "\n";
  for (const Node& member : group.members) {
    text += separator;
    text += inner + Json(member.name).dump() + ": ";
    if (member.token != nullptr) {
      text += tokenObject(*member.token).dump();
    } else {
      addGroup(text, member, inner);
    }
    separator = ",\n";
  }
  text += "\n" + indent + "}";
}

constexpr std::string_view kWhole = "brisel";  // the file of all families

std::string fileName(std::string_view of) { return std::string(of) + ".tokens.json"; }

// The names of the files and the family that each begins with.
std::map<std::string, std::string_view> exportedFiles() {
  std::map<std::string, std::string_view> files{{fileName(kWhole), tokenFamilies().front().name}};
  for (const TokenFamily& family : tokenFamilies()) files.emplace(fileName(family.name), family.name);
  return files;
}

// Whether all that a directory holds was exported, as what is replaced is deleted. Names and key are published, and
// others may use them: the files must begin as they are written here, too.
bool holdsExportsAlone(const fs::path& directory) {
  const std::map<std::string, std::string_view> files = exportedFiles();
  const std::string mark = R"("$extensions":{")" + std::string(kExportMark) + R"(":{)";
  for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
    const auto file = files.find(entry.path().filename().string());
    if (file == files.end() || !headHolds(entry.path(), mark)) return false;
    if (!headHolds(entry.path(), "{\n  \"" + std::string(file->second) + "\": {\n")) return false;
  }
  return true;
}

}  // namespace

std::string dtcgText(std::span<const Token> tokens) {
  requireExportable(tokens);
  Node document;
  for (const Token& token : tokens) {
    Node* place = &document;
    for (const std::string& name : token.path) place = &place->member(name);
    place->token = &token;
  }
  std::string text;
  addGroup(text, document, "");
  return text + "\n";
}

void writeDtcg(const fs::path& directory) {
  noteInterruptions();
  OutputDirectory output(directory, holdsExportsAlone);
  std::vector<Token> all;
  for (const TokenFamily& family : tokenFamilies()) {
    const std::vector<Token> tokens = family.tokens();
    output.write(fileName(family.name), dtcgText(tokens));
    all.insert(all.end(), tokens.begin(), tokens.end());
    if (wasInterrupted()) throw Interrupted();
  }
  output.write(fileName(kWhole), dtcgText(all));
  output.commit();
}

}  // namespace Brisel::Gallery
