// Reads a built document back with an XML parser.
#include "tests/itemdata/XmlLines.h"

#include <pugixml.hpp>
#include <stdexcept>
#include <utility>

namespace Quillane::Plugin::ItemData {

namespace {

std::pair<std::string, std::string> splitName(const std::string& name) {
  const size_t colon = name.find(':');
  if (colon == std::string::npos) return {"", name};
  return {name.substr(0, colon), name.substr(colon + 1)};
}

std::string namespaceOf(pugi::xml_node element, const std::string& prefix) {
  const std::string declaration = prefix.empty() ? "xmlns" : "xmlns:" + prefix;
  for (; element; element = element.parent()) {
    if (const pugi::xml_attribute found = element.attribute(declaration.c_str())) return found.value();
  }
  return "";
}

void append(std::vector<std::string>& lines, pugi::xml_node element, int depth) {
  const auto [prefix, name] = splitName(element.name());
  std::string line = std::string(2 * depth, ' ') + "{" + namespaceOf(element, prefix) + "}" + name;
  for (const pugi::xml_attribute attribute : element.attributes()) {
    const std::string attributeName = attribute.name();
    if (attributeName.rfind("xmlns", 0) == 0) continue;
    line += " " + attributeName + "=" + attribute.value();
  }
  const std::string text = element.child_value();
  if (!text.empty()) line += " '" + text + "'";
  lines.push_back(line);
  for (const pugi::xml_node child : element.children()) {
    if (child.type() == pugi::node_element) append(lines, child, depth + 1);
  }
}

}  // namespace

std::vector<std::string> xmlLines(const XMLBuilder::Document& document) {
  const FX::FXString text = document.toText();
  pugi::xml_document parsed;
  const pugi::xml_parse_result result = parsed.load_buffer(text.text(), static_cast<size_t>(text.length()));
  if (!result) throw std::runtime_error(std::string(result.description()) + ": " + text.text());
  std::vector<std::string> lines;
  append(lines, parsed.document_element(), 0);
  return lines;
}

}  // namespace Quillane::Plugin::ItemData
