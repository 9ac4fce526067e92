// XML documents in memory, kept in pugixml's tree and written here.
//
//  1. Names and texts in the tree are clean: valid UTF-8, only characters that XML 1.0 can carry, names that are names.
//     They are cleaned on the way in, since the tree's texts end at a NUL.
//  2. Escaping is done on the way out. pugixml's own writer leaves a carriage return in a text as it is, and a parser
//     would read it as a line feed.
//  3. Every namespace but the root's is declared on the root, under one prefix. The root's namespace is the default
//     one; an element without a namespace therefore switches the default off for itself and what it holds.
#include "plugin/contract/XMLBuilder.h"

#include <algorithm>
#include <memory>
#include <pugixml.hpp>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

using namespace FX;

namespace XMLBuilder {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD
constexpr std::size_t kDeepestIndent = 32;
constexpr std::string_view kXmlNameSpace = "http://www.w3.org/XML/1998/namespace";
constexpr std::string_view kXmlnsNameSpace = "http://www.w3.org/2000/xmlns/";

/// One character of a text: its code and how many bytes it takes. No character: code 0, one byte.
struct Character {
  char32_t code;
  std::size_t length;
};

bool isContinuation(std::string_view text, std::size_t at) {
  return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

Character decode(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t index) { return static_cast<char32_t>(static_cast<unsigned char>(text[index])); };
  const char32_t first = byte(at);
  if (first < 0x80) return {first, 1};
  std::size_t length = 0;
  char32_t smallest = 0;
  if (first >= 0xC2 && first < 0xE0) {
    length = 2;
    smallest = 0x80;
  } else if (first >= 0xE0 && first < 0xF0) {
    length = 3;
    smallest = 0x800;
  } else if (first >= 0xF0 && first < 0xF5) {
    length = 4;
    smallest = 0x10000;
  } else {
    return {0, 1};
  }
  char32_t code = first & (0xFFu >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if (!isContinuation(text, at + i)) return {0, 1};
    code = code << 6 | (byte(at + i) & 0x3F);
  }
  const bool valid = code >= smallest && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
  return valid ? Character{code, length} : Character{0, 1};
}

/// Whether XML 1.0 can carry the character.
bool isCarried(char32_t code) {
  return code >= 0x20 ? code != 0xFFFE && code != 0xFFFF : code == '\t' || code == '\n' || code == '\r';
}

std::string_view view(const FXString& text) { return {text.text(), static_cast<std::size_t>(text.length())}; }

/// The text with U+FFFD for every character that XML cannot carry and every byte that belongs to none.
std::string cleanText(const FXString& text) {
  const std::string_view given = view(text);
  std::string clean;
  clean.reserve(given.size());
  for (std::size_t at = 0; at < given.size();) {
    const Character character = decode(given, at);
    if (isCarried(character.code)) {
      clean.append(given, at, character.length);
    } else {
      clean.append(kReplacement);
    }
    at += character.length;
  }
  return clean;
}

struct Range {
  char32_t first;
  char32_t last;
};

constexpr Range kNameStart[] = {
    {'A', 'Z'},       {'_', '_'},       {'a', 'z'},       {0xC0, 0xD6},     {0xD8, 0xF6},
    {0xF8, 0x2FF},    {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F},
    {0x2C00, 0x2FEF}, {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};
constexpr Range kNameOnly[] = {{'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

template <std::size_t N>
bool isIn(const Range (&ranges)[N], char32_t code) {
  for (const Range& range : ranges)
    if (code >= range.first && code <= range.last) return true;
  return false;
}

/// A name without a colon, made from any text.
std::string cleanName(const FXString& name) {
  const std::string_view given = view(name);
  std::string clean;
  for (std::size_t at = 0; at < given.size();) {
    const Character character = decode(given, at);
    if (isIn(kNameStart, character.code)) {
      clean.append(given, at, character.length);
    } else if (isIn(kNameOnly, character.code)) {
      if (clean.empty()) clean = "_";
      clean.append(given, at, character.length);
    } else {
      clean += '_';
    }
    at += character.length;
  }
  return clean.empty() ? "_" : clean;
}

/// Names that begin with "xml" are reserved; as a prefix some of them are not even allowed.
bool isReserved(std::string_view name) {
  return name.size() >= 3 && (name[0] | 0x20) == 'x' && (name[1] | 0x20) == 'm' && (name[2] | 0x20) == 'l';
}

void writeEscaped(std::string& out, const char* text, bool attribute) {
  for (; *text; ++text) {
    switch (*text) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':  // "]]>" must not stand in a text
        out += "&gt;";
        break;
      case '\r':
        out += "&#13;";
        break;
      case '"':
        out += attribute ? "&quot;" : "\"";
        break;
      case '\n':
        out += attribute ? "&#10;" : "\n";
        break;
      case '\t':
        out += attribute ? "&#9;" : "\t";
        break;
      default:
        out += *text;
    }
  }
}

bool isText(pugi::xml_node node) { return node.type() == pugi::node_pcdata; }

/// Writes the tree below root, without recursion: how deep it is, is up to the modules.
class Writer {
 public:
  explicit Writer(std::string& target) : out(target) {}

  void write(pugi::xml_node root) {
    pugi::xml_node node = root;
    while (true) {
      if (enter(node)) {
        node = node.first_child();
        continue;
      }
      while (node != root && !node.next_sibling()) {
        node = node.parent();
        leave(node);
      }
      if (node == root) break;
      node = node.next_sibling();
    }
    out += '\n';
  }

 private:
  /// White space may stand only where no text is: the root, or an element among elements only. A text stands first.
  static bool mayIndent(pugi::xml_node node) { return !isText(node.parent().first_child()); }

  void startLine() {
    out += '\n';
    out.append(2 * std::min(depth, kDeepestIndent), ' ');
  }

  /// True when the node has children, which are to be written before leave.
  bool enter(pugi::xml_node node) {
    if (isText(node)) {
      writeEscaped(out, node.value(), false);
      return false;
    }
    if (mayIndent(node)) startLine();
    out += '<';
    out += node.name();
    for (pugi::xml_attribute attribute : node.attributes()) {
      out += ' ';
      out += attribute.name();
      out += "=\"";
      writeEscaped(out, attribute.value(), true);
      out += '"';
    }
    if (!node.first_child()) {
      out += "/>";
      return false;
    }
    out += '>';
    ++depth;
    return true;
  }

  void leave(pugi::xml_node node) {
    --depth;
    if (!isText(node.first_child())) startLine();
    out += "</";
    out += node.name();
    out += '>';
  }

  std::string& out;
  std::size_t depth = 0;
};

}  // namespace

struct Document::Content {
  pugi::xml_document tree;
  std::vector<std::unique_ptr<Element>> elements;  // the root first
  FXString givenRootNameSpace;
  std::string rootNameSpace;
  std::unordered_map<std::string, std::string> prefixes;  // by namespace
  std::set<std::string> usedPrefixes;
  FXString lastNameSpace;                   // as it was asked for,
  const std::string* lastPrefix = nullptr;  // and its prefix; null when there is none

  Element* add(Document* document, pugi::xml_node node, bool inDefaultNameSpace) {
    elements.emplace_back(new Element(document, node.internal_object(), inDefaultNameSpace));
    return elements.back().get();
  }

  pugi::xml_node root() { return tree.document_element(); }

  /// The namespaces that XML keeps for itself cannot be a default: then the root has none.
  void setRootNameSpace(const FXString& nameSpace) {
    const std::string clean = cleanText(nameSpace);
    if (clean.empty() || clean == kXmlNameSpace || clean == kXmlnsNameSpace) return;
    givenRootNameSpace = nameSpace;
    rootNameSpace = clean;
    root().append_attribute("xmlns").set_value(clean.c_str());
  }

  bool isRootNameSpace(const FXString& nameSpace) const { return view(nameSpace) == view(givenRootNameSpace); }

  const std::string& declare(const std::string& nameSpace, std::string prefix) {
    const auto known = prefixes.find(nameSpace);
    if (known != prefixes.end()) return known->second;
    if (isReserved(prefix)) prefix.insert(0, "_");
    std::string free = prefix;
    for (int number = 1; usedPrefixes.count(free); ++number) free = prefix + std::to_string(number);
    usedPrefixes.insert(free);
    root().append_attribute(("xmlns:" + free).c_str()).set_value(nameSpace.c_str());
    return prefixes.emplace(nameSpace, free).first->second;
  }

  /// The prefix of a namespace, declared now if it was not yet. Null when names in it take none: the empty one.
  const std::string* getPrefix(const FXString& nameSpace) {
    if (nameSpace.empty()) return nullptr;
    if (lastPrefix && view(lastNameSpace) == view(nameSpace)) return lastPrefix;
    const std::string clean = cleanText(nameSpace);
    if (clean == kXmlnsNameSpace) return nullptr;  // may not be declared, by whatever prefix
    lastNameSpace = nameSpace;
    lastPrefix = &declare(clean, "ns");
    return lastPrefix;
  }
};

Element* Element::createElement(const FXString& nameSpace, const FXString& name) {
  Document::Content& content = *document->content;
  const std::string local = cleanName(name);
  pugi::xml_node parent(node);
  const bool inRootNameSpace = content.isRootNameSpace(nameSpace);
  const std::string* prefix = inRootNameSpace ? nullptr : content.getPrefix(nameSpace);
  if (prefix) {
    const pugi::xml_node child = parent.append_child((*prefix + ':' + local).c_str());
    return content.add(document, child, defaultNameSpace);
  }
  pugi::xml_node child = parent.append_child(local.c_str());
  if (inRootNameSpace != defaultNameSpace)
    child.append_attribute("xmlns").set_value(inRootNameSpace ? content.rootNameSpace.c_str() : "");
  return content.add(document, child, inRootNameSpace);
}

void Element::setAttribute(const FXString& nameSpace, const FXString& name, const FXString& value) {
  const std::string* prefix = document->content->getPrefix(nameSpace);
  std::string full = cleanName(name);
  if (prefix) {
    full = *prefix + ':' + full;
  } else if (full == "xmlns") {
    full = "_xmlns";
  }
  pugi::xml_node element(node);
  pugi::xml_attribute attribute = element.attribute(full.c_str());
  if (!attribute) attribute = element.append_attribute(full.c_str());
  attribute.set_value(cleanText(value).c_str());
}

void Element::setText(const FXString& text) {
  pugi::xml_node element(node);
  pugi::xml_node first = element.first_child();
  if (text.empty()) {
    if (isText(first)) element.remove_child(first);
    return;
  }
  if (!isText(first)) first = element.prepend_child(pugi::node_pcdata);
  first.set_value(cleanText(text).c_str());
}

Document::Document(const FXString& rootNameSpace, const FXString& rootName) : Node(this), content(new Content) {
  content->usedPrefixes = {"xml", "xmlns"};
  content->prefixes.emplace(kXmlNameSpace, "xml");
  pugi::xml_node root = content->tree.append_child(cleanName(rootName).c_str());
  content->setRootNameSpace(rootNameSpace);
  content->add(this, root, true);
}

Document::~Document() { delete content; }

Element* Document::getRoot() const { return content->elements.front().get(); }

void Document::addNamespace(const FXString& prefix, const FXString& uri) {
  const std::string nameSpace = cleanText(uri);
  if (nameSpace.empty() || nameSpace == kXmlnsNameSpace) return;
  content->declare(nameSpace, prefix.empty() ? "ns" : cleanName(prefix));
}

FXString Document::toText() const {
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
  Writer(text).write(content->root());
  return FXString(text.data(), static_cast<FXint>(text.size()));
}

}  // namespace XMLBuilder
