#pragma once

#include <fx.h>

#include "plugin/contract/HostApi.h"

namespace pugi {
struct xml_node_struct;
}

/// Builds XML documents in memory. Whatever texts are given, the result is well-formed: characters that XML 1.0 cannot
/// carry, and bytes that are no UTF-8, become U+FFFD.
namespace XMLBuilder {

class Document;

/// A document or an element of one.
class QUILLANE_HOST_API Node {
 public:
  /// The document that the node belongs to.
  Document* getDocument() const { return document; }

  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

 protected:
  explicit Node(Document* owner) : document(owner) {}
  ~Node() = default;

  Document* document;  // not owned
};

/// One element; its document owns it.
class QUILLANE_HOST_API Element : public Node {
 public:
  /// A new last child with this local name in this namespace (the empty text for none); owned by the document.
  /// A namespace that the document does not know yet is added under a prefix of the document's choice. A name that is
  /// none in XML is made into one: "_" takes the place of what cannot stand in it.
  Element* createElement(const FX::FXString& nameSpace, const FX::FXString& name);

  /// Sets the attribute, replacing an earlier value. The empty namespace gives a plain attribute.
  void setAttribute(const FX::FXString& nameSpace, const FX::FXString& name, const FX::FXString& value);

  /// Sets the element's text content, replacing an earlier one; child elements stay, and follow the text.
  void setText(const FX::FXString& text);

 private:
  friend class Document;
  Element(Document* owner, pugi::xml_node_struct* element, bool inDefaultNameSpace)
      : Node(owner), node(element), defaultNameSpace(inDefaultNameSpace) {}

  pugi::xml_node_struct* node;  // owned by the document
  bool defaultNameSpace;        // names without a prefix are in the root's namespace here
};

/// A document with one root element.
class QUILLANE_HOST_API Document : public Node {
 public:
  /// The root element's namespace is the document's default namespace.
  Document(const FX::FXString& rootNameSpace, const FX::FXString& rootName);
  ~Document();

  Element* getRoot() const;

  /// Declares the namespace on the root element under prefix. A namespace keeps the first prefix that it got; a prefix
  /// that another namespace has already is changed until it is free.
  void addNamespace(const FX::FXString& prefix, const FX::FXString& uri);

  /// The whole document as UTF-8 text with an XML declaration. Elements that hold elements only are indented.
  FX::FXString toText() const;

 private:
  friend class Element;
  struct Content;
  Content* content;  // owned
};

}  // namespace XMLBuilder
