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
#include <deque>
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

/// Whether XML can carry all of the text as it is.
bool isClean(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    while (static_cast<signed char>(text[at]) >= ' ')  // most characters
      if (++at == text.size()) return true;
    const Character character = decode(text, at);
    if (!isCarried(character.code)) return false;
    at += character.length;
  }
  return true;
}

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

/// Gives the node or attribute the cleaned text; most texts are clean, and need no copy for it.
template <class Handle>
void setCleanValue(Handle target, const FXString& text) {
  if (isClean(view(text)))
    target.set_value(text.text());
  else
    target.set_value(cleanText(text).c_str());
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

bool isLetter(char character) {
  const char lower = static_cast<char>(character | 0x20);
  return lower >= 'a' && lower <= 'z';
}

/// How many letters the text begins with.
std::size_t countLetters(std::string_view text) {
  std::size_t count = 0;
  while (count < text.size() && isLetter(text[count])) ++count;
  return count;
}

/// Appends a name without a colon, made from any text.
void appendCleanName(std::string& out, const FXString& name) {
  const std::string_view given = view(name);
  const std::size_t start = out.size();
  const std::size_t letters = countLetters(given);
  out.append(given, 0, letters);
  for (std::size_t at = letters; at < given.size();) {
    const Character character = decode(given, at);
    if (isIn(kNameStart, character.code)) {
      out.append(given, at, character.length);
    } else if (isIn(kNameOnly, character.code)) {
      if (out.size() == start) out += '_';
      out.append(given, at, character.length);
    } else {
      out += '_';
    }
    at += character.length;
  }
  if (out.size() == start) out += '_';
}

std::string cleanName(const FXString& name) {
  std::string clean;
  appendCleanName(clean, name);
  return clean;
}

/// Names that begin with "xml" are reserved; as a prefix some of them are not even allowed.
bool isReserved(std::string_view name) {
  return name.size() >= 3 && (name[0] | 0x20) == 'x' && (name[1] | 0x20) == 'm' && (name[2] | 0x20) == 'l';
}

const char* escapeOf(char character) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':  // "]]>" must not stand in a text
      return "&gt;";
    case '"':
      return "&quot;";
    case '\r':
      return "&#13;";
    case '\n':
      return "&#10;";
    default:
      return "&#9;";
  }
}

/// The characters to escape, and the end of the text.
struct Stops {
  explicit constexpr Stops(std::string_view escaped) {
    at[0] = true;
    for (const char character : escaped) at[static_cast<unsigned char>(character)] = true;
  }

  bool has(char character) const { return at[static_cast<unsigned char>(character)]; }

  bool at[256] = {};
};

constexpr Stops kStopsInText("&<>\r");
constexpr Stops kStopsInAttribute("&<>\"\r\n\t");

void writeEscaped(std::string& out, const char* text, const Stops& stops) {
  while (true) {
    const char* const plain = text;
    while (!stops.has(*text)) ++text;
    out.append(plain, text);
    if (!*text) return;
    out += escapeOf(*text++);
  }
}

bool isText(pugi::xml_node node) { return node.type() == pugi::node_pcdata; }

/// Writes the tree below root, without recursion: how deep it is, is up to the modules.
class Writer {
 public:
  explicit Writer(std::string& target) : out(target) {}

  void write(pugi::xml_node root) {
    for (pugi::xml_node node = root; node;) node = enter(node) ? node.first_child() : findNext(node);
    out += '\n';
  }

 private:
  /// White space may stand only where no text is: the root, or an element among elements only. A text stands first.
  static bool holdsElementsOnly(pugi::xml_node node) { return !isText(node.first_child()); }

  void startLine() { out.append(lineStart, 0, 1 + 2 * std::min(depth, kDeepestIndent)); }

  void close(std::string_view name) {
    out += '<';
    out += '/';
    out += name;
    out += '>';
  }

  /// True when the node has children that are to be written before leave.
  bool enter(pugi::xml_node node) {
    if (onOwnLine) {
      startLine();
    } else if (isText(node)) {
      writeEscaped(out, node.value(), kStopsInText);
      return false;
    }
    const std::string_view name = node.name();
    out += '<';
    out += name;
    for (pugi::xml_attribute attribute = node.first_attribute(); attribute; attribute = attribute.next_attribute()) {
      out += ' ';
      out += attribute.name();
      out += '=';
      out += '"';
      writeEscaped(out, attribute.value(), kStopsInAttribute);
      out += '"';
    }
    const pugi::xml_node child = node.first_child();
    const pugi::xml_node_type kind = child.type();
    if (kind == pugi::node_null) {
      out += "/>";
      return false;
    }
    out += '>';
    if (kind == pugi::node_pcdata && !child.next_sibling()) {
      writeEscaped(out, child.value(), kStopsInText);
      close(name);
      return false;
    }
    ++depth;
    onOwnLine = kind != pugi::node_pcdata;
    return true;
  }

  /// The node after this one and what it holds; leaves the nodes that end with it. Null after the root.
  pugi::xml_node findNext(pugi::xml_node node) {
    while (depth > 0) {
      if (const pugi::xml_node sibling = node.next_sibling()) return sibling;
      node = node.parent();
      leave(node);
    }
    return {};
  }

  void leave(pugi::xml_node node) {
    --depth;
    if (onOwnLine) startLine();
    close(node.name());
    onOwnLine = holdsElementsOnly(node.parent());
  }

  std::string& out;
  const std::string lineStart = '\n' + std::string(2 * kDeepestIndent, ' ');
  std::size_t depth = 0;
  bool onOwnLine = true;  // the children of the node that was entered last
};

}  // namespace

struct Document::Content {
  /// An element that a container can make.
  struct OwnedElement : Element {
    OwnedElement(Document* owner, pugi::xml_node element, bool inDefaultNameSpace)
        : Element(owner, element.internal_object(), inDefaultNameSpace) {}
  };

  pugi::xml_document tree;
  std::deque<OwnedElement> elements;  // the root first
  FXString givenRootNameSpace;
  std::string rootNameSpace;
  std::unordered_map<std::string, std::string> prefixes;  // by namespace
  std::set<std::string> usedPrefixes;
  FXString lastNameSpace;                   // as it was asked for,
  const std::string* lastPrefix = nullptr;  // and its prefix; null when there is none
  std::string fullName;                     // what getFullName made last, of these:
  const std::string* prefixOfFullName = nullptr;
  FXString nameOfFullName;

  Element* add(Document* document, pugi::xml_node node, bool inDefaultNameSpace) {
    return &elements.emplace_back(document, node, inDefaultNameSpace);
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

  /// The cleaned name with its prefix, if any; valid until the next call and as long as name stays.
  const char* getFullName(const std::string* prefix, const FXString& name) {
    if (!prefix && !name.empty() && countLetters(view(name)) == view(name).size()) return name.text();
    if (prefix && prefix == prefixOfFullName && view(name) == view(nameOfFullName)) return fullName.c_str();
    fullName.clear();
    if (prefix) (fullName += *prefix) += ':';
    appendCleanName(fullName, name);
    prefixOfFullName = prefix;
    nameOfFullName = name;
    return fullName.c_str();
  }
};

Element* Element::createElement(const FXString& nameSpace, const FXString& name) {
  Document::Content& content = *document->content;
  const bool inRootNameSpace = content.isRootNameSpace(nameSpace);
  const std::string* prefix = inRootNameSpace ? nullptr : content.getPrefix(nameSpace);
  pugi::xml_node child = pugi::xml_node(node).append_child(content.getFullName(prefix, name));
  if (prefix) return content.add(document, child, defaultNameSpace);
  if (inRootNameSpace != defaultNameSpace)
    child.append_attribute("xmlns").set_value(inRootNameSpace ? content.rootNameSpace.c_str() : "");
  return content.add(document, child, inRootNameSpace);
}

void Element::setAttribute(const FXString& nameSpace, const FXString& name, const FXString& value) {
  const std::string* prefix = document->content->getPrefix(nameSpace);
  const bool declares = !prefix && view(name) == "xmlns";
  const char* full = declares ? "_xmlns" : document->content->getFullName(prefix, name);
  pugi::xml_node element(node);
  pugi::xml_attribute attribute = element.attribute(full);
  if (!attribute) attribute = element.append_attribute(full);
  setCleanValue(attribute, value);
}

void Element::setText(const FXString& text) {
  pugi::xml_node element(node);
  pugi::xml_node first = element.first_child();
  if (text.empty()) {
    if (isText(first)) element.remove_child(first);
    return;
  }
  if (!isText(first)) first = element.prepend_child(pugi::node_pcdata);
  setCleanValue(first, text);
}

Document::Document(const FXString& rootNameSpace, const FXString& rootName) : Node(this), content(new Content) {
  content->usedPrefixes = {"xml", "xmlns"};
  content->prefixes.emplace(kXmlNameSpace, "xml");
  pugi::xml_node root = content->tree.append_child(cleanName(rootName).c_str());
  content->setRootNameSpace(rootNameSpace);
  content->add(this, root, true);
}

Document::~Document() { delete content; }

Element* Document::getRoot() const { return &content->elements.front(); }

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
