#include "xml/tree/Parsing.h"

#include <libxml/SAX2.h>
#include <libxml/dict.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "platform/File.h"
#include "platform/Text.h"
#include "xml/tree/Nodes.h"

namespace orvale::tree {
namespace {

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

constexpr std::size_t kFields = 5;  // of an attribute: name, prefix, namespace, first and last of the value

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
    return parser.maxatts > static_cast<int>(2 * kFields) * kMostAttributes || parser.nsMax > 8 * kMostAttributes;
}

bool HasTooMany(const xmlParserCtxt& parser, int own, int defaulted) {
    ParseState* const state = State(parser);
    if (own > kMostAttributes || parser.nsNr / 2 > kMostAttributes || state == nullptr) return true;
    state->defaulted += defaulted;
    return state->defaulted > kMostDefaulted;
}

// The library bounds the memory of names; beyond that there is none.
const xmlChar* WholeName(const xmlParserCtxt& parser, const xmlChar* prefix, const xmlChar* name) {
    return prefix != nullptr ? Required(xmlDictQLookup(parser.dict, prefix, name)) : name;
}

// The namespaces that an element declares (prefix and address of each), as attributes.
void AddNamespaces(std::vector<const xmlChar*>& attributes, const xmlParserCtxt& parser, int count,
                   const xmlChar** namespaces) {
    if (count == 0) return;
    const xmlChar* const xmlns = Required(xmlDictLookup(parser.dict, BAD_CAST "xmlns", -1));
    for (int i = 0; i < count; ++i) {
        const xmlChar* const declared = namespaces[2 * i];
        const xmlChar* const value = namespaces[2 * i + 1] != nullptr ? namespaces[2 * i + 1] : BAD_CAST "";
        const xmlChar* const name = declared != nullptr ? WholeName(parser, xmlns, declared) : xmlns;
        attributes.insert(attributes.end(), {name, nullptr, nullptr, value, value + xmlStrlen(value)});
    }
}

// An element's start is the moment at which its parent is known to have child elements, so that the blanks before it
// are no value. Each child is looked at once or twice in all.
//
// Names are whole from here on: a prefix is part of the name, and a declaration of one an attribute like others.
void StartElement(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar*, int namespaceCount,
                  const xmlChar** namespaces, int attributeCount, int defaultedCount,
                  const xmlChar** attributes) noexcept {
    xmlParserCtxt& parser = Parser(context);
    if (HasTooMany(parser, attributeCount + namespaceCount, defaultedCount)) return Refuse(parser);
    if (parser.node != nullptr) DropBlanksBehind(parser.node, LastElement(parser.node));
    try {
        std::vector<const xmlChar*> whole;
        AddNamespaces(whole, parser, namespaceCount, namespaces);
        for (int i = 0; i < attributeCount; ++i) {
            const xmlChar** const field = attributes + kFields * static_cast<std::size_t>(i);
            whole.insert(whole.end(), {WholeName(parser, field[1], field[0]), nullptr, nullptr, field[3], field[4]});
        }
        // Attributes by default count like those that are written.
        xmlSAX2StartElementNs(context, WholeName(parser, prefix, name), nullptr, nullptr, 0, nullptr,
                              namespaceCount + attributeCount, 0, whole.data());
    } catch (...) {
        parser.errNo = XML_ERR_NO_MEMORY;
        Refuse(parser);
    }
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

}  // namespace

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

}  // namespace orvale::tree
