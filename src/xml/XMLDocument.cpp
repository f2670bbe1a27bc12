#include "xml/XMLDocument.h"

#include <algorithm>
#include <exception>
#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/AtomicFile.h"
#include "platform/Text.h"
#include "xml/XMLCharacters.h"
#include "xml/tree/Nodes.h"
#include "xml/tree/Parsing.h"
#include "xml/tree/Saving.h"

namespace tree = orvale::tree;
using orvale::CleanText;
using orvale::FromUtf8;
using orvale::ToUtf8;
using orvale::tree::DocumentPtr;

struct CXMLDocument::Tree {
    // Handles lead into every tree that this object ever had, so none is freed before its end.
    std::vector<DocumentPtr> earlier;
    DocumentPtr document;
    std::u16string path;
    xmlNode* root = nullptr;
    std::vector<xmlNode*> loose;  // elements that were never appended
    // The comments and attributes that XML can't hold, as they were given: in the tree they stand for themselves.
    std::unordered_map<const xmlNode*, std::u16string> unfit;
    bool lacks = false;  // memory ran out: something isn't in the document
    bool* shortage = nullptr;

    ~Tree() {
        for (xmlNode* const node : loose)
            if (node != nullptr) xmlFreeNode(node);
    }

    bool Replace(DocumentPtr other) {
        if (other == nullptr) return false;
        if (document != nullptr && document->children != nullptr) earlier.push_back(std::move(document));
        document = std::move(other);
        lacks = false;
        return true;
    }

    static xmlNode* Node(NodeHandle handle) { return static_cast<xmlNode*>(handle.node_); }

    // An element that takes children: the handle's, or the root; else null.
    xmlNode* Parent(NodeHandle handle) const {
        xmlNode* const parent = handle ? Node(handle) : root;
        return parent != nullptr && parent->type == XML_ELEMENT_NODE ? parent : nullptr;
    }

    // Keeps what was given where XML can't hold it.
    void Judge(const xmlNode* node, std::u16string_view text, bool fits) {
        if (!fits)
            unfit[node] = text;
        else if (!unfit.empty())
            unfit.erase(node);
    }

    const std::u16string* Unfit(const void* node) const {
        if (unfit.empty()) return nullptr;
        const auto found = unfit.find(static_cast<const xmlNode*>(node));
        return found != unfit.end() ? &found->second : nullptr;
    }

    bool FitsFile() const {
        return std::none_of(unfit.begin(), unfit.end(),
                            [&](const auto& entry) { return entry.first->doc == document.get(); });
    }
};

/// Any exception within the body becomes the operation's failure: 0, none or the empty text. It comes of a want of
/// memory, which a caller who looks at no result hears of all the same.
template <class Body>
auto CXMLDocument::Guarded(Body body) const noexcept -> decltype(body()) {
    try {
        return body();
    } catch (...) {
        tree_->lacks = true;
        if (tree_->shortage != nullptr) *tree_->shortage = true;
        return {};
    }
}

CXMLDocument::CXMLDocument(bool* shortage) : tree_(std::make_unique<Tree>()) {
    tree_->shortage = shortage;
}
CXMLDocument::~CXMLDocument() = default;

std::int32_t CXMLDocument::Create(Text path) {
    return Guarded([&] {
        if (!path) return 0;
        tree_->path = *path;
        return tree_->Replace(tree::NewDocument()) ? 1 : 0;
    });
}

// ---- building

std::int32_t CXMLDocument::CreateHeader() {
    return Guarded([&] {
        xmlDoc* const document = tree_->document.get();
        if (document == nullptr || document->children != nullptr) return 0;
        tree::AppendHeader(document);
        return 1;
    });
}

NodeHandle CXMLDocument::CreateRoot(Text name, Text text) {
    return Guarded([&] {
        tree_->root = nullptr;
        xmlDoc* const document = tree_->document.get();
        if (!name || document == nullptr || xmlDocGetRootElement(document) != nullptr) return NodeHandle();
        const std::u16string clean = CleanText(*name);
        if (!orvale::IsName(clean)) return NodeHandle();
        xmlNode* const root = tree::NewElement(document, clean);
        tree::Append(reinterpret_cast<xmlNode*>(document), root);
        tree_->root = root;
        if (text) tree::AppendText(root, CleanText(*text));
        return NodeHandle(root);
    });
}

NodeHandle CXMLDocument::CreateNode(Text name, Text text, NodeHandle parentHandle, bool append, std::int32_t indent) {
    return Guarded([&] {
        if (!name) return NodeHandle();
        xmlNode* const parent = tree_->Parent(parentHandle);
        if (indent >= 0 && parent != nullptr) tree::AppendIndent(parent, indent);
        xmlDoc* const document = parent != nullptr ? parent->doc : tree_->document.get();
        const std::u16string clean = CleanText(*name);
        if (document == nullptr || (append && parent == nullptr) || !orvale::IsName(clean)) return NodeHandle();
        if (!append) tree_->loose.push_back(nullptr);
        xmlNode* const node = tree::NewElement(document, clean);
        if (append)
            tree::Append(parent, node);
        else
            tree_->loose.back() = node;
        if (text) tree::AppendText(node, CleanText(*text));
        return NodeHandle(node);
    });
}

NodeHandle CXMLDocument::AddComment(Text text, NodeHandle parentHandle) {
    return Guarded([&] {
        xmlNode* const parent = tree_->Parent(parentHandle);
        if (!text || parent == nullptr) return NodeHandle();
        xmlNode* const comment = tree::AppendComment(parent, *text);
        tree_->Judge(comment, *text, orvale::FitsComment(*text));
        return NodeHandle(comment);
    });
}

std::int32_t CXMLDocument::SetAttribute(Text name, Text value, NodeHandle elementHandle) {
    return Guarded([&] {
        if (!name || !value || !elementHandle || !orvale::IsName(*name)) return 0;
        xmlNode* const element = tree_->Parent(elementHandle);
        if (element == nullptr) return 0;
        const auto* const attribute = reinterpret_cast<xmlNode*>(tree::SetAttribute(element, *name, *value));
        tree_->Judge(attribute, *value, orvale::FitsXml(*value));
        return 1;
    });
}

// ---- from a file or a text, and to a file

std::int32_t CXMLDocument::Load() {
    return Guarded([&] {
        if (tree_->path.empty() || tree_->document == nullptr || !tree_->Replace(tree::ParseFile(tree_->path)))
            return 0;
        tree_->root = xmlDocGetRootElement(tree_->document.get());
        return 1;
    });
}

std::int32_t CXMLDocument::LoadXML(Text text) {
    return Guarded([&] {
        DocumentPtr parsed = text && !text->empty() ? tree::ParseText(CleanText(*text)) : nullptr;
        if (!tree_->Replace(parsed != nullptr ? std::move(parsed) : tree::NewDocument())) return 0;
        tree_->root = xmlDocGetRootElement(tree_->document.get());
        return 1;
    });
}

std::int32_t CXMLDocument::Save() {
    if (tree_->path.empty() || tree_->document == nullptr || tree_->lacks || !tree_->FitsFile()) return 0;
    if (!orvale::IsWellFormed(tree_->path)) return 0;  // no name of a file
    try {
        orvale::AtomicFile file(ToUtf8(tree_->path));
        if (!tree::WriteDocument(tree_->document.get(), file)) return 0;
        file.Commit();
        return 1;
    } catch (const std::exception&) {  // which harms the document in no way: it can be saved again
        return 0;
    }
}

// ---- walking

NodeHandle CXMLDocument::GetRoot() const {
    return NodeHandle(tree_->root);
}

NodeHandle CXMLDocument::FirstChild(NodeHandle parentHandle) const {
    const xmlNode* const parent = tree_->Parent(parentHandle);
    return NodeHandle(parent != nullptr ? tree::SkipBlanks(parent->children) : nullptr);
}

NodeHandle CXMLDocument::NextSibling(NodeHandle node) const {
    return NodeHandle(node ? tree::SkipBlanks(Tree::Node(node)->next) : nullptr);
}

NodeHandle CXMLDocument::FindChild(Text name, NodeHandle parent) const {
    NodeHandle child = name ? FirstChild(parent) : NodeHandle();
    while (child && !HasName(child, *name))
        child = NextSibling(child);
    return child;
}

std::u16string CXMLDocument::GetName(NodeHandle node) const {
    return Guarded([&] { return node ? FromUtf8(tree::NameOf(Tree::Node(node))) : std::u16string(); });
}

bool CXMLDocument::HasName(NodeHandle node, std::u16string_view name) const {
    return Guarded([&] { return node && tree::SameText(tree::NameOf(Tree::Node(node)), name, std::equal_to<>()); });
}

bool CXMLDocument::HasNameNoCase(NodeHandle node, std::u16string_view name) const {
    return Guarded([&] {
        return node && tree::SameText(tree::NameOf(Tree::Node(node)), name, [](char16_t a, char16_t b) {
                   return a == b || orvale::ToLower(a) == orvale::ToLower(b);
               });
    });
}

bool CXMLDocument::IsElement(NodeHandle node) const {
    return node && Tree::Node(node)->type == XML_ELEMENT_NODE;
}

std::u16string CXMLDocument::GetText(NodeHandle nodeHandle) const {
    return Guarded([&] {
        const xmlNode* const node = Tree::Node(nodeHandle);
        if (node == nullptr) return std::u16string();
        if (node->type == XML_ELEMENT_NODE) return FromUtf8(tree::TextBelow(node));
        const std::u16string* const given = tree_->Unfit(node);
        return given != nullptr ? *given : FromUtf8(tree::ContentOf(node));
    });
}

std::u16string CXMLDocument::GetAttribute(Text name, NodeHandle elementHandle) const {
    return Guarded([&] {
        const xmlNode* const element = elementHandle ? tree_->Parent(elementHandle) : nullptr;
        const xmlAttr* const attribute = name && element != nullptr ? tree::FindAttribute(element, *name) : nullptr;
        if (attribute == nullptr) return std::u16string();
        if (const std::u16string* const given = tree_->Unfit(attribute)) return *given;
        return FromUtf8(tree::TextBelow(reinterpret_cast<const xmlNode*>(attribute)));
    });
}
