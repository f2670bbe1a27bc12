#include "xml/XMLDocument.h"

#include <libxml/SAX2.h>
#include <libxml/dict.h>
#include <libxml/globals.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/tree.h>
#include <libxml/xmlsave.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <new>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/AtomicFile.h"
#include "platform/File.h"
#include "platform/Text.h"
#include "xml/XMLCharacters.h"

using orvale::CleanText;
using orvale::FromUtf8;
using orvale::ToUtf8;

namespace {

struct FreeDocument {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
using DocumentPtr = std::unique_ptr<xmlDoc, FreeDocument>;

const xmlChar* Bytes(const std::string& text) {
    return reinterpret_cast<const xmlChar*>(text.c_str());
}
const char* Characters(const xmlChar* bytes) {
    return reinterpret_cast<const char*>(bytes);
}

/// What the library could not make for want of memory.
template <class Made>
Made* Required(Made* made) {
    if (made == nullptr) throw std::bad_alloc();
    return made;
}

/// Keeps the library's messages of this thread from the host's handlers and from standard error while it lives, and
/// hears of a want of memory, of which the library's results often say nothing.
class QuietLibrary {
 public:
    QuietLibrary() {
        xmlSetStructuredErrorFunc(this, [](void* self, auto error) { static_cast<QuietLibrary*>(self)->Hear(*error); });
    }
    ~QuietLibrary() { xmlSetStructuredErrorFunc(context_, handler_); }
    QuietLibrary(const QuietLibrary&) = delete;
    QuietLibrary& operator=(const QuietLibrary&) = delete;

    bool HeardShortage() const { return shortage_; }

 private:
    void Hear(const xmlError& error) { shortage_ = shortage_ || error.code == XML_ERR_NO_MEMORY; }

    bool shortage_ = false;
    xmlStructuredErrorFunc handler_ = xmlStructuredError;
    void* context_ = xmlStructuredErrorContext;
};

// The library sets itself up at its first use, and two threads that meet there both do: its mutexes are made twice.
void SetUpLibrary() {
    static const bool done = [] {
        const QuietLibrary quiet;
        xmlInitParser();
        return true;
    }();
    static_cast<void>(done);
}

// ---- nodes

// What a text, a comment or an instruction holds.
std::string_view ContentOf(const xmlNode* node) {
    return node->content != nullptr ? std::string_view(Characters(node->content)) : std::string_view();
}

bool HoldsText(const xmlNode* node) {
    return node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE;
}

bool IsBlankText(const xmlNode* node) {
    return node->type == XML_TEXT_NODE && xmlIsBlankNode(node) != 0;
}

// The texts that this layer made bear a mark; they count in a walk even if they are blank.
void MarkMade(xmlNode* node) {
    node->_private = node;
}

// The first of a node and its following siblings that a walk meets.
xmlNode* SkipBlanks(xmlNode* node) {
    while (node != nullptr && node->_private == nullptr && IsBlankText(node))
        node = node->next;
    return node;
}

const char* NameOf(const xmlNode* node) {
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

// The library's own way of appending walks attributes and merges adjacent texts, which would free one that a handle
// leads to. A document takes children like a node: the fields that count here stand alike in both.
void Append(xmlNode* parent, xmlNode* child) {
    child->parent = parent;
    child->prev = parent->last;
    (parent->last != nullptr ? parent->last->next : parent->children) = child;
    parent->last = child;
}

// Names and indents recur: the document's dictionary keeps each once.
xmlNode* NewElement(xmlDoc* document, std::u16string_view name) {
    const std::string bytes = ToUtf8(name);
    const xmlChar* const kept = Required(xmlDictLookup(document->dict, Bytes(bytes), static_cast<int>(bytes.size())));
    return Required(xmlNewDocNodeEatName(document, nullptr, const_cast<xmlChar*>(kept), nullptr));
}

void AppendText(xmlNode* parent, std::u16string_view text) {
    if (text.empty()) return;
    xmlNode* const node = Required(xmlNewDocText(parent->doc, Bytes(ToUtf8(text))));
    MarkMade(node);
    Append(parent, node);
    Required(node->content);
}

void AppendIndent(xmlNode* parent, std::int32_t tabs) {
    const std::string text = "\n" + std::string(static_cast<std::size_t>(tabs), '\t');
    xmlNode* const node = Required(xmlNewDocText(parent->doc, nullptr));
    node->content = const_cast<xmlChar*>(xmlDictLookup(parent->doc->dict, Bytes(text), static_cast<int>(text.size())));
    MarkMade(node);
    Append(parent, node);
    Required(node->content);
}

xmlAttr* FindAttribute(const xmlNode* element, std::u16string_view name) {
    xmlAttr* attribute = element->properties;
    while (attribute != nullptr && !SameText(Characters(attribute->name), name, std::equal_to<char16_t>()))
        attribute = attribute->next;
    return attribute;
}

// All text below a node, without recursion: how deep a document may be is its writer's choice.
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

// ---- parsing

xmlParserCtxt& Parser(void* context) {
    return *static_cast<xmlParserCtxt*>(context);
}

// The last child of a node that is an element.
xmlNode* LastElement(const xmlNode* parent) {
    xmlNode* node = parent->last;
    while (node != nullptr && node->type != XML_ELEMENT_NODE)
        node = node->prev;
    return node;
}

// Frees the blank texts of a node behind one of its children, or all for null.
void DropBlanksBehind(const xmlNode* parent, const xmlNode* child) {
    for (xmlNode* node = parent->last; node != child;) {
        xmlNode* const before = node->prev;
        if (IsBlankText(node)) {
            xmlUnlinkNode(node);
            xmlFreeNode(node);
        }
        node = before;
    }
}

// What a document may have of attributes. The library compares those of an element with each other, and those that a
// declaration gives by default cost a byte or two of the file and some hundred of memory at each element: 20 KB of file
// made half a gigabyte.
constexpr int kMostAttributes = 1000;            // of an element; namespaces in scope likewise
constexpr std::int64_t kMostDefaulted = 100000;  // of the whole document

// What one parse knows beside the library: for the document and its entities together.
struct ParseState {
    std::int64_t defaulted = 0;  // attributes that were declared by default and not written
    bool shortage = false;       // of memory; further errors come of it and hide it
};

ParseState* State(const xmlParserCtxt& parser) {
    return static_cast<ParseState*>(parser._private);
}

// Refuses the document that is being parsed.
void Refuse(xmlParserCtxt& parser) {
    xmlStopParser(&parser);
    parser.wellFormed = 0;
}

// Whether an element has too many, told while its start is still being read: by what the library has made room for.
bool MakesRoomForTooMany(const xmlParserCtxt& parser) {
    constexpr int kFields = 5;
    return parser.maxatts > 2 * kFields * kMostAttributes || parser.nsMax > 8 * kMostAttributes;
}

// An element's start is the moment at which its parent is known to have child elements, so that the blanks before it
// are no value. Each child is looked at once or twice in all.
//
// Names are whole from here on: a prefix is part of the name, and a declaration of one an attribute like others.
void StartElement(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar*, int namespaceCount,
                  const xmlChar** namespaces, int attributeCount, int defaultedCount,
                  const xmlChar** attributes) noexcept {
    xmlParserCtxt& parser = Parser(context);
    ParseState* const state = State(parser);
    if (attributeCount + namespaceCount > kMostAttributes || parser.nsNr / 2 > kMostAttributes || state == nullptr ||
        (state->defaulted += defaultedCount) > kMostDefaulted)
        return Refuse(parser);
    if (parser.node != nullptr) DropBlanksBehind(parser.node, LastElement(parser.node));
    constexpr std::size_t kFields = 5;  // name, prefix, namespace, first and last of the value
    // The library bounds the memory of names; beyond that there is none.
    bool isNamed = true;
    const auto whole = [&](const xmlChar* before, const xmlChar* local) {
        const xmlChar* const all = before != nullptr ? xmlDictQLookup(parser.dict, before, local) : local;
        isNamed = isNamed && all != nullptr;
        return all;
    };
    const xmlChar* const wholeName = whole(prefix, name);
    std::vector<const xmlChar*> list;
    try {
        const xmlChar* const declares =
            namespaceCount != 0 ? xmlDictLookup(parser.dict, BAD_CAST "xmlns", -1) : nullptr;
        for (int i = 0; i < namespaceCount; ++i) {
            const xmlChar* const key = namespaces[2 * i];
            const xmlChar* const value = namespaces[2 * i + 1] != nullptr ? namespaces[2 * i + 1] : BAD_CAST "";
            list.insert(list.end(), {key != nullptr ? whole(declares, key) : whole(nullptr, declares), nullptr, nullptr,
                                     value, value + xmlStrlen(value)});
        }
        for (int i = 0; i < attributeCount; ++i) {
            const xmlChar** const field = attributes + kFields * static_cast<std::size_t>(i);
            list.insert(list.end(), {whole(field[1], field[0]), nullptr, nullptr, field[3], field[4]});
        }
    } catch (...) {
        isNamed = false;
    }
    if (!isNamed) {
        parser.errNo = XML_ERR_NO_MEMORY;
        return Refuse(parser);
    }
    // Attributes by default count like those that are written.
    xmlSAX2StartElementNs(context, wholeName, nullptr, nullptr, 0, nullptr, namespaceCount + attributeCount, 0,
                          list.data());
}

// White space between two tags that an element stands before or behind: no value, as far as can be told from here, and
// the common indent of a document. What isn't followed by a tag right away is part of a longer text.
bool IsIndent(const xmlParserCtxt& parser, const xmlChar* text, int length) {
    const xmlNode* const last = parser.node != nullptr ? parser.node->last : nullptr;
    // What comes behind the text: the parser stands there, or still before it. A zero ends what was read so far.
    const xmlChar* const next = parser.input->cur != text ? parser.input->cur : text + length;
    if (next[0] != '<' || parser.node == nullptr || (last != nullptr && last->type != XML_ELEMENT_NODE)) return false;
    if (last == nullptr && (next[1] == '/' || next[1] == '!' || next[1] == '?' || next[1] == 0)) return false;
    return std::all_of(text, text + length, [](xmlChar c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; });
}

// An indent gets no node, which would be dropped by the next start or end of an element.
void HearCharacters(void* context, const xmlChar* text, int length) noexcept {
    if (!IsIndent(Parser(context), text, length)) xmlSAX2Characters(context, text, length);
}

void EndElement(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri) noexcept {
    const xmlNode* const element = Parser(context).node;
    const xmlNode* const last = element != nullptr ? LastElement(element) : nullptr;
    if (last != nullptr) DropBlanksBehind(element, last);
    xmlSAX2EndElementNs(context, name, prefix, uri);
}

// Only what the document itself says in full is an entity; one that lies elsewhere isn't known.
void DeclareEntity(void* context, const xmlChar* name, int type, const xmlChar* publicId, const xmlChar* systemId,
                   xmlChar* content) noexcept {
    // Its text is parsed in one go, in which nothing could stop an element with too many attributes.
    constexpr int kLongest = 64 * 1024;
    if (content != nullptr && xmlStrlen(content) > kLongest) return Refuse(Parser(context));
    if (type == XML_INTERNAL_GENERAL_ENTITY) xmlSAX2EntityDecl(context, name, type, publicId, systemId, content);
}

// A reference to an entity that isn't known is a fault, whatever a file elsewhere may say of it: its text would be
// lost.
void HearError(void* context, const xmlError* error) noexcept {
    if (error->code == XML_WAR_UNDECLARED_ENTITY) Parser(context).wellFormed = 0;
    ParseState* const state = State(Parser(context));
    if (error->code == XML_ERR_NO_MEMORY && state != nullptr) state->shortage = true;
}

// The handlers that a host may have set for all parsers of the process don't count here.
void SetHandlers(xmlParserCtxt& parser) {
    xmlSAXHandler& handlers = *parser.sax;
    xmlSAXVersion(&handlers, 2);
    handlers.startElementNs = StartElement;
    handlers.endElementNs = EndElement;
    handlers.characters = handlers.ignorableWhitespace = HearCharacters;
    handlers.entityDecl = DeclareEntity;
    // The parser itself keeps the defaults. The library's list of declarations is walked to its end for each new one.
    handlers.attributeDecl = [](void*, const xmlChar*, const xmlChar*, int, int, const xmlChar*,
                                xmlEnumeration* values) { xmlFreeEnumeration(values); };
    handlers.externalSubset = [](void*, const xmlChar*, const xmlChar*, const xmlChar*) {};
    handlers.warning = nullptr;
    handlers.error = nullptr;
    handlers.serror = [](void* context, auto error) { HearError(context, error); };
    parser.keepBlanks = 1;
}

// The library expands entities itself, since its limits on their growth hold only then.
constexpr int kParserOptions =
    XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_COMPACT | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;

template <class Read>
DocumentPtr Parse(Read read) {
    SetUpLibrary();
    const QuietLibrary quiet;
    struct FreeParser {
        void operator()(xmlParserCtxt* parser) const { xmlFreeParserCtxt(parser); }
    };
    const std::unique_ptr<xmlParserCtxt, FreeParser> parser(Required(xmlNewParserCtxt()));
    SetHandlers(*parser);
    ParseState state;
    parser->_private = &state;
    DocumentPtr document(read(parser.get()));
    // Not all of the library tells of a want of memory; a text that doesn't parse has an error of its own.
    const int error = parser->errNo != XML_ERR_OK ? parser->errNo : parser->lastError.code;
    if (quiet.HeardShortage() || state.shortage || error == XML_ERR_NO_MEMORY ||
        (document == nullptr && error == XML_ERR_OK))
        throw std::bad_alloc();
    return document;
}

// Parses what `take` gives, a piece at a time: between two of them an element with too many attributes is met before
// they cost. `take(buffer, size)` tells how many bytes it gave, 0 at the end.
template <class Take>
DocumentPtr ParsePieces(Take take, const char* encoding, int options) {
    struct Source {
        Take& take;
        const xmlParserCtxt* parser = nullptr;
        bool failed = false;
    };
    const auto read = [](void* context, char* buffer, int size) noexcept {
        auto& from = *static_cast<Source*>(context);
        from.failed = from.failed || MakesRoomForTooMany(*from.parser);
        if (from.failed) return -1;
        try {
            return static_cast<int>(from.take(buffer, static_cast<std::uint32_t>(size)));
        } catch (...) {
            from.failed = true;
            return -1;
        }
    };
    Source source{take};
    DocumentPtr document = Parse([&](xmlParserCtxt* parser) {
        source.parser = parser;
        return xmlCtxtReadIO(parser, read, nullptr, &source, nullptr, encoding, options);
    });
    return source.failed ? nullptr : std::move(document);
}

DocumentPtr ParseFile(const std::u16string& path) {
    CFile file;
    if (file.Open(path.c_str(), CFile::kModeRead, nullptr) == 0) return nullptr;
    return ParsePieces([&](char* buffer, std::uint32_t size) { return file.Read(buffer, size); }, nullptr,
                       kParserOptions);
}

DocumentPtr ParseText(std::u16string_view text) {
    const std::string bytes = ToUtf8(text);
    std::string_view rest = bytes;
    const auto take = [&](char* buffer, std::uint32_t size) {
        const std::size_t taken = rest.copy(buffer, size);
        rest.remove_prefix(taken);
        return taken;
    };
    return ParsePieces(take, "UTF-8", kParserOptions | XML_PARSE_IGNORE_ENC);
}

DocumentPtr NewDocument() {
    SetUpLibrary();
    DocumentPtr document(Required(xmlNewDoc(BAD_CAST "1.0")));
    document->dict = Required(xmlDictCreate());
    return document;
}

// ---- saving

struct Sink {
    orvale::AtomicFile& file;
    bool failed = false;
};

// The library forgets that a write failed.
int WriteBytes(void* context, const char* bytes, int size) noexcept {
    auto& sink = *static_cast<Sink*>(context);
    try {
        if (!sink.failed) sink.file.Write({bytes, static_cast<std::size_t>(size)});
    } catch (...) {
        sink.failed = true;
    }
    return sink.failed ? -1 : size;
}

bool WriteDocument(xmlDoc* document, orvale::AtomicFile& file) {
    const QuietLibrary quiet;
    Sink sink{file};
    xmlSaveCtxt* const save =
        xmlSaveToIO(WriteBytes, nullptr, &sink, "UTF-8", XML_SAVE_NO_DECL | XML_SAVE_NO_XHTML | XML_SAVE_AS_XML);
    if (save == nullptr) return false;
    const bool written = xmlSaveDoc(save, document) >= 0;
    const bool closed = xmlSaveClose(save) >= 0;
    return written && closed && !sink.failed && !quiet.HeardShortage();
}

}  // namespace

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

    xmlNode* NodeOr(NodeHandle node, xmlNode* other) const { return node ? static_cast<xmlNode*>(node.node_) : other; }

    // An element that takes children: the handle's, or the root; else null.
    xmlNode* Parent(NodeHandle node) const {
        xmlNode* const parent = NodeOr(node, root);
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
        return tree_->Replace(NewDocument()) ? 1 : 0;
    });
}

std::int32_t CXMLDocument::CreateHeader() {
    return Guarded([&] {
        xmlDoc* const document = tree_->document.get();
        if (document == nullptr || document->children != nullptr) return 0;
        xmlNode* const header =
            Required(xmlNewDocPI(document, BAD_CAST "xml", BAD_CAST "version='1.0' encoding='utf-8'"));
        Append(reinterpret_cast<xmlNode*>(document), header);
        Required(header->name);
        Required(header->content);
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
        xmlNode* const root = NewElement(document, clean);
        Append(reinterpret_cast<xmlNode*>(document), root);
        tree_->root = root;
        if (text) AppendText(root, CleanText(*text));
        return NodeHandle(root);
    });
}

NodeHandle CXMLDocument::GetRoot() const {
    return NodeHandle(tree_->root);
}

NodeHandle CXMLDocument::CreateNode(Text name, Text text, NodeHandle parentHandle, bool append, std::int32_t indent) {
    return Guarded([&] {
        if (!name) return NodeHandle();
        xmlNode* const parent = tree_->Parent(parentHandle);
        if (indent >= 0 && parent != nullptr) AppendIndent(parent, indent);
        xmlDoc* const document = parent != nullptr ? parent->doc : tree_->document.get();
        const std::u16string clean = CleanText(*name);
        if (document == nullptr || (append && parent == nullptr) || !orvale::IsName(clean)) return NodeHandle();
        if (!append) tree_->loose.push_back(nullptr);
        xmlNode* const node = NewElement(document, clean);
        if (append)
            Append(parent, node);
        else
            tree_->loose.back() = node;
        if (text) AppendText(node, CleanText(*text));
        return NodeHandle(node);
    });
}

NodeHandle CXMLDocument::AddComment(Text text, NodeHandle parentHandle) {
    return Guarded([&] {
        xmlNode* const parent = tree_->Parent(parentHandle);
        if (!text || parent == nullptr) return NodeHandle();
        xmlNode* const comment = Required(xmlNewDocComment(parent->doc, Bytes(ToUtf8(*text))));
        Append(parent, comment);
        Required(comment->content);
        tree_->Judge(comment, *text, orvale::FitsComment(*text));
        return NodeHandle(comment);
    });
}

std::int32_t CXMLDocument::SetAttribute(Text name, Text value, NodeHandle elementHandle) {
    return Guarded([&] {
        if (!name || !value || !elementHandle || !orvale::IsName(*name)) return 0;
        xmlNode* const element = tree_->Parent(elementHandle);
        if (element == nullptr) return 0;
        xmlAttr* attribute = FindAttribute(element, *name);
        if (attribute == nullptr) {
            attribute = Required(xmlNewProp(element, Bytes(ToUtf8(*name)), nullptr));
            if (attribute->name == nullptr) {
                xmlRemoveProp(attribute);
                throw std::bad_alloc();
            }
        }
        auto* const node = reinterpret_cast<xmlNode*>(attribute);
        xmlFreeNodeList(attribute->children);
        attribute->children = attribute->last = nullptr;
        AppendText(node, *value);
        tree_->Judge(node, *value, orvale::FitsXml(*value));
        return 1;
    });
}

std::u16string CXMLDocument::GetAttribute(Text name, NodeHandle elementHandle) const {
    return Guarded([&] {
        const xmlNode* const element = elementHandle ? tree_->Parent(elementHandle) : nullptr;
        const xmlAttr* const attribute = name && element != nullptr ? FindAttribute(element, *name) : nullptr;
        if (attribute == nullptr) return std::u16string();
        if (const std::u16string* const given = tree_->Unfit(attribute)) return *given;
        return FromUtf8(TextBelow(reinterpret_cast<const xmlNode*>(attribute)));
    });
}

std::int32_t CXMLDocument::Load() {
    return Guarded([&] {
        if (tree_->path.empty() || tree_->document == nullptr || !tree_->Replace(ParseFile(tree_->path))) return 0;
        tree_->root = xmlDocGetRootElement(tree_->document.get());
        return 1;
    });
}

std::int32_t CXMLDocument::LoadXML(Text text) {
    return Guarded([&] {
        DocumentPtr parsed = text && !text->empty() ? ParseText(CleanText(*text)) : nullptr;
        if (!tree_->Replace(parsed != nullptr ? std::move(parsed) : NewDocument())) return 0;
        tree_->root = xmlDocGetRootElement(tree_->document.get());
        return 1;
    });
}

std::int32_t CXMLDocument::Save() {
    if (tree_->path.empty() || tree_->document == nullptr || tree_->lacks || !tree_->FitsFile()) return 0;
    if (!orvale::IsWellFormed(tree_->path)) return 0;  // no name of a file
    try {
        orvale::AtomicFile file(ToUtf8(tree_->path));
        if (!WriteDocument(tree_->document.get(), file)) return 0;
        file.Commit();
        return 1;
    } catch (const std::exception&) {  // which harms the document in no way: it can be saved again
        return 0;
    }
}

NodeHandle CXMLDocument::FirstChild(NodeHandle parentHandle) const {
    const xmlNode* const parent = tree_->Parent(parentHandle);
    return NodeHandle(parent != nullptr ? SkipBlanks(parent->children) : nullptr);
}

NodeHandle CXMLDocument::NextSibling(NodeHandle node) const {
    return NodeHandle(node ? SkipBlanks(tree_->NodeOr(node, nullptr)->next) : nullptr);
}

NodeHandle CXMLDocument::FindChild(Text name, NodeHandle parent) const {
    NodeHandle child = name ? FirstChild(parent) : NodeHandle();
    while (child && !HasName(child, *name))
        child = NextSibling(child);
    return child;
}

std::u16string CXMLDocument::GetName(NodeHandle node) const {
    return Guarded([&] { return node ? FromUtf8(NameOf(tree_->NodeOr(node, nullptr))) : std::u16string(); });
}

bool CXMLDocument::HasName(NodeHandle node, std::u16string_view name) const {
    return Guarded(
        [&] { return node && SameText(NameOf(tree_->NodeOr(node, nullptr)), name, std::equal_to<char16_t>()); });
}

bool CXMLDocument::HasNameNoCase(NodeHandle node, std::u16string_view name) const {
    return Guarded([&] {
        return node && SameText(NameOf(tree_->NodeOr(node, nullptr)), name, [](char16_t a, char16_t b) {
                   return a == b || orvale::ToLower(a) == orvale::ToLower(b);
               });
    });
}

bool CXMLDocument::IsElement(NodeHandle node) const {
    return node && tree_->NodeOr(node, nullptr)->type == XML_ELEMENT_NODE;
}

std::u16string CXMLDocument::GetText(NodeHandle handle) const {
    return Guarded([&] {
        const xmlNode* const node = tree_->NodeOr(handle, nullptr);
        if (node == nullptr) return std::u16string();
        if (node->type == XML_ELEMENT_NODE) return FromUtf8(TextBelow(node));
        const std::u16string* const given = tree_->Unfit(node);
        return given != nullptr ? *given : FromUtf8(ContentOf(node));
    });
}
