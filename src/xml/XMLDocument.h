#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// A reference to a node of a document; none is its null value. Good for the life of the CXMLDocument that gave it.
class NodeHandle {
 public:
    NodeHandle() = default;

    explicit operator bool() const { return node_ != nullptr; }
    bool operator==(const NodeHandle&) const = default;

 private:
    friend class CXMLDocument;
    explicit NodeHandle(void* node) : node_(node) {}

    void* node_ = nullptr;
};

/// An XML document in memory (XML 1.0, fifth edition): built node by node and written in one go by Save, or read in one
/// go by Load and walked. Texts are 16-bit and may be null (std::nullopt). Nothing here throws; an operation gives 1, a
/// node or a text where it succeeds, else 0, none or the empty text.
///
/// A document that was read has no text of white space alone as far as a walk can see, wherever it stands; in one that
/// is being built every text is there. Nothing outside a document is ever looked at: no network, no external entity, no
/// external DTD. Nesting deeper than 256, texts above 10 000 000 bytes and elements with more than 1000 attributes are
/// refused, as are entities, and attributes by default, that grow beyond measure.
class CXMLDocument {
 public:
    using Text = std::optional<std::u16string_view>;

    /// `shortage`, if it isn't null, is set where an operation finds no memory; what it gave then is not to be relied
    /// on.
    explicit CXMLDocument(bool* shortage = nullptr);
    virtual ~CXMLDocument();
    CXMLDocument(const CXMLDocument&) = delete;
    CXMLDocument& operator=(const CXMLDocument&) = delete;

    /// Makes a new, empty document and keeps the path, for Load and Save. 0 for a null path.
    std::int32_t Create(Text path);

    /// Makes the instruction that opens the document: version 1.0, encoding utf-8. 0 where the document isn't empty.
    std::int32_t CreateHeader();

    /// Makes the document's root. The root before is given up, also where this fails: for a null or bad name, and in a
    /// document that has a root element already.
    NodeHandle CreateRoot(Text name, Text text = {});
    NodeHandle GetRoot() const;

    /// Makes an element and, if `append`, appends it to the parent (the root for none). Before it goes a text of one
    /// line feed and `indent` tabs, unless `indent` is negative; that goes also where the name, not null, makes no
    /// element. Name and text lose what XML can't hold: control units, surrogate halves (with them every character
    /// beyond the basic plane), 0xFFFE and 0xFFFF.
    NodeHandle CreateNode(Text name, Text text, NodeHandle parent, bool append, std::int32_t indent);

    /// Appends a comment to the parent (the root for none). The text stays as it is; one that no XML comment can hold
    /// makes Save fail.
    NodeHandle AddComment(Text text, NodeHandle parent);

    /// Sets an attribute of an element, in place of an earlier one of the name. The value stays as it is; one that XML
    /// can't hold makes Save fail. 0 for null, for a bad name, and where the node is no element.
    std::int32_t SetAttribute(Text name, Text value, NodeHandle element);
    std::u16string GetAttribute(Text name, NodeHandle element) const;

    /// Parses the file at the path. On success its root is the root from then on; else document and root stay.
    std::int32_t Load();

    /// Parses a text, in place of what the document held; an encoding that it declares isn't looked at. 1 also for a
    /// text that doesn't parse: the document is empty then, and the root none.
    std::int32_t LoadXML(Text text);

    /// Writes the document to the path, as UTF-8: the file there is replaced when the new one is whole. 0 also where
    /// memory ran out while the document was built, so that something is missing in it.
    std::int32_t Save();

    NodeHandle FirstChild(NodeHandle parent) const;  ///< of any kind; of the root for none
    NodeHandle NextSibling(NodeHandle node) const;

    /// The first child of exactly this name, of the root for none.
    NodeHandle FindChild(Text name, NodeHandle parent) const;

    /// The whole name, prefix included; "#text", "#cdata-section", "#comment" for what has none.
    std::u16string GetName(NodeHandle node) const;

    /// GetName's answer compared, at less cost.
    bool HasName(NodeHandle node, std::u16string_view name) const;
    bool HasNameNoCase(NodeHandle node, std::u16string_view name) const;
    bool IsElement(NodeHandle node) const;

    /// The text of the node and of what lies below it, without comments and instructions.
    std::u16string GetText(NodeHandle node) const;

 private:
    template <class Body>
    auto Guarded(Body body) const noexcept -> decltype(body());

    struct Tree;
    std::unique_ptr<Tree> tree_;
};
