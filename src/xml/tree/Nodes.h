#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Text.h"
#include "xml/tree/Library.h"

/// The nodes of a tree: their names, their texts, and how they are added. Texts are UTF-8 in the tree and 16-bit
/// outside of it. What finds no memory throws std::bad_alloc.
namespace orvale::tree {

/// An empty document. Names and indents recur: its dictionary keeps each once.
DocumentPtr NewDocument();

// ---- reading

/// The whole name of a node, prefix included.
inline const char* NameOf(const xmlNode* node) {
    switch (node->type) {
        case XML_TEXT_NODE:
            return "#text";
        case XML_CDATA_SECTION_NODE:
            return "#cdata-section";
        case XML_COMMENT_NODE:
            return "#comment";
        default:
            return node->name != nullptr ? Characters(node->name) : "";
    }
}

/// Compares a text of the tree with one from outside, unit by unit.
template <class SameUnit>
bool SameText(const char* utf8, std::u16string_view text, SameUnit same) {
    for (std::size_t i = 0;; ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        if (byte >= 0x80) {
            const std::u16string rest = FromUtf8(utf8 + i);
            return std::equal(rest.begin(), rest.end(), text.begin() + static_cast<std::ptrdiff_t>(i), text.end(),
                              same);
        }
        if (byte == 0 || i == text.size()) return byte == 0 && i == text.size();
        if (!same(byte, text[i])) return false;
    }
}

inline bool IsBlankText(const xmlNode* node) {
    return node->type == XML_TEXT_NODE && xmlIsBlankNode(node) != 0;
}

/// The first of a node and its following siblings that a walk meets: blank texts are passed over, but for those that
/// were added here and not parsed.
inline xmlNode* SkipBlanks(xmlNode* node) {
    while (node != nullptr && node->_private == nullptr && IsBlankText(node))
        node = node->next;
    return node;
}

/// What a text, a comment or an instruction holds.
std::string_view ContentOf(const xmlNode* node);

/// All text below a node.
std::string TextBelow(const xmlNode* top);

/// Null where the element has no such attribute.
xmlAttr* FindAttribute(const xmlNode* element, std::u16string_view name);

// ---- adding

/// Names are judged by the caller.
xmlNode* NewElement(xmlDoc* document, std::u16string_view name);

/// A document takes children like a node.
void Append(xmlNode* parent, xmlNode* child);

void AppendText(xmlNode* parent, std::u16string_view text);
void AppendIndent(xmlNode* parent, std::int32_t tabs);
xmlNode* AppendComment(xmlNode* parent, std::u16string_view text);

/// The instruction that opens a document: version 1.0, encoding utf-8.
void AppendHeader(xmlDoc* document);

/// In place of an earlier attribute of the name.
xmlAttr* SetAttribute(xmlNode* element, std::u16string_view name, std::u16string_view value);

}  // namespace orvale::tree
