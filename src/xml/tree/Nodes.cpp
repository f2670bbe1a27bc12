#include "xml/tree/Nodes.h"

#include <libxml/dict.h>

#include <functional>

namespace orvale::tree {
namespace {

bool HoldsText(const xmlNode* node) {
    return node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE;
}

// The texts that are added here bear a mark; they count in a walk even if they are blank.
void MarkAdded(xmlNode* node) {
    node->_private = node;
}

const xmlChar* Kept(xmlDict* dictionary, const std::string& text) {
    return xmlDictLookup(dictionary, Bytes(text), static_cast<int>(text.size()));
}

}  // namespace

DocumentPtr NewDocument() {
    SetUpLibrary();
    DocumentPtr document(Required(xmlNewDoc(BAD_CAST "1.0")));
    document->dict = Required(xmlDictCreate());
    return document;
}

std::string_view ContentOf(const xmlNode* node) {
    return node->content != nullptr ? std::string_view(Characters(node->content)) : std::string_view();
}

// Without recursion: how deep a document may be is its writer's choice.
std::string TextBelow(const xmlNode* top) {
    std::string text;
    const xmlNode* node = top->children;
    while (node != nullptr) {
        if (HoldsText(node)) text.append(ContentOf(node));
        if (node->type == XML_ELEMENT_NODE && node->children != nullptr) {
            node = node->children;
            continue;
        }
        while (node != top && node->next == nullptr)
            node = node->parent;
        if (node == top) break;
        node = node->next;
    }
    return text;
}

xmlAttr* FindAttribute(const xmlNode* element, std::u16string_view name) {
    xmlAttr* attribute = element->properties;
    while (attribute != nullptr && !SameText(Characters(attribute->name), name, std::equal_to<>()))
        attribute = attribute->next;
    return attribute;
}

xmlNode* NewElement(xmlDoc* document, std::u16string_view name) {
    const xmlChar* const kept = Required(Kept(document->dict, ToUtf8(name)));
    return Required(xmlNewDocNodeEatName(document, nullptr, const_cast<xmlChar*>(kept), nullptr));
}

// The library's own way of appending walks attributes and merges adjacent texts, which would free one that a handle
// leads to. The fields that count here stand alike in a document and in a node.
void Append(xmlNode* parent, xmlNode* child) {
    child->parent = parent;
    child->prev = parent->last;
    (parent->last != nullptr ? parent->last->next : parent->children) = child;
    parent->last = child;
}

void AppendText(xmlNode* parent, std::u16string_view text) {
    if (text.empty()) return;
    xmlNode* const node = Required(xmlNewDocText(parent->doc, Bytes(ToUtf8(text))));
    MarkAdded(node);
    Append(parent, node);
    Required(node->content);
}

void AppendIndent(xmlNode* parent, std::int32_t tabs) {
    const std::string text = "\n" + std::string(static_cast<std::size_t>(tabs), '\t');
    xmlNode* const node = Required(xmlNewDocText(parent->doc, nullptr));
    node->content = const_cast<xmlChar*>(Kept(parent->doc->dict, text));
    MarkAdded(node);
    Append(parent, node);
    Required(node->content);
}

xmlNode* AppendComment(xmlNode* parent, std::u16string_view text) {
    xmlNode* const comment = Required(xmlNewDocComment(parent->doc, Bytes(ToUtf8(text))));
    Append(parent, comment);
    Required(comment->content);
    return comment;
}

void AppendHeader(xmlDoc* document) {
    xmlNode* const header = Required(xmlNewDocPI(document, BAD_CAST "xml", BAD_CAST "version='1.0' encoding='utf-8'"));
    Append(reinterpret_cast<xmlNode*>(document), header);
    Required(header->name);
    Required(header->content);
}

xmlAttr* SetAttribute(xmlNode* element, std::u16string_view name, std::u16string_view value) {
    xmlAttr* attribute = FindAttribute(element, name);
    if (attribute == nullptr) {
        attribute = Required(xmlNewProp(element, Bytes(ToUtf8(name)), nullptr));
        if (attribute->name == nullptr) {
            xmlRemoveProp(attribute);
            throw std::bad_alloc();
        }
    }
    xmlFreeNodeList(attribute->children);
    attribute->children = attribute->last = nullptr;
    AppendText(reinterpret_cast<xmlNode*>(attribute), value);
    return attribute;
}

}  // namespace orvale::tree
