#include <csv.h>
#include <libxml/parser.h>

#include <cstdio>
#include <cstring>
#include <iostream>
#include <iterator>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "Yardsticks.h"

/// The least that a program does to read a file: bare loops, and libraries by themselves. Each prints a count, that of
/// the records or, of the bare loops, of the values.
namespace {

bool IsContact(const xmlChar* name) {
    return std::strcmp(reinterpret_cast<const char*>(name), "contact") == 0;
}

std::size_t Below(const xmlNode* node) {
    std::size_t contacts = 0;
    for (; node != nullptr; node = node->next)
        if (node->type == XML_ELEMENT_NODE) contacts += IsContact(node->name) ? 1 : Below(node->children);
    return contacts;
}

std::size_t XmlTree(const std::string& path) {
    xmlDoc* const document = xmlReadFile(path.c_str(), nullptr, XML_PARSE_NOBLANKS);
    if (document == nullptr) return 0;
    const std::size_t contacts = Below(xmlDocGetRootElement(document));
    xmlFreeDoc(document);
    return contacts;
}

// No tree: each element and each text is heard of once.
std::size_t XmlSax(const std::string& path) {
    struct Heard {
        std::size_t contacts = 0;
        std::size_t bytes = 0;
    } heard;
    xmlSAXHandler handler{};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startElementNs = [](void* context, const xmlChar* name, const xmlChar*, const xmlChar*, int,
                                const xmlChar**, int, int,
                                const xmlChar**) { static_cast<Heard*>(context)->contacts += IsContact(name); };
    handler.characters = handler.ignorableWhitespace = [](void* context, const xmlChar*, int size) {
        static_cast<Heard*>(context)->bytes += static_cast<std::size_t>(size);
    };
    return xmlSAXUserParseFile(&handler, &heard, path.c_str()) == 0 ? heard.contacts : 0;
}

std::size_t Below(const pugi::xml_node& parent) {
    std::size_t contacts = 0;
    for (const pugi::xml_node& node : parent)
        contacts += std::strcmp(node.name(), "contact") == 0 ? 1 : Below(node);
    return contacts;
}

std::size_t Pugixml(const std::string& path) {
    pugi::xml_document document;
    return document.load_file(path.c_str()) ? Below(document) : 0;
}

std::size_t Libcsv(const std::string& path) {
    struct Heard {
        std::vector<std::string> values;
        std::size_t records = 0;
    } heard;
    csv_parser parser;
    if (csv_init(&parser, 0) != 0) return 0;
    const auto value = [](void* bytes, std::size_t size, void* context) {
        static_cast<Heard*>(context)->values.emplace_back(static_cast<const char*>(bytes), size);
    };
    const auto line = [](int, void* context) {
        static_cast<Heard*>(context)->values.clear();
        ++static_cast<Heard*>(context)->records;
    };
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    if (file == nullptr) return 0;
    std::vector<char> buffer(64 * 1024);
    while (const std::size_t got = std::fread(buffer.data(), 1, buffer.size(), file))
        csv_parse(&parser, buffer.data(), got, value, line, &heard);
    csv_fini(&parser, value, line, &heard);
    csv_free(&parser);
    std::fclose(file);
    return heard.records - 1;  // without the captions
}

struct Peer {
    const char* name;
    std::size_t (*count)(const std::string& path);
};

constexpr Peer kPeers[] = {
    {"bare-native", &orvale::bench::ReadPrefixedTexts},
    {"bare-vcard", &orvale::bench::ReadKeyedLines},
    {"libxml2-tree", &XmlTree},
    {"libxml2-sax", &XmlSax},
    {"pugixml", &Pugixml},
    {"libcsv", &Libcsv},
};

}  // namespace

int main(int count, char** arguments) {
    for (const Peer& peer : kPeers) {
        if (count != 3 || std::strcmp(arguments[1], peer.name) != 0) continue;
        const std::size_t found = peer.count(arguments[2]);
        std::cout << found << '\n';
        return found != 0 ? 0 : 1;
    }
    std::cerr << "usage: orvale_bench_peers";
    for (const Peer& peer : kPeers)
        std::cerr << (&peer == kPeers ? " " : "|") << peer.name;
    std::cerr << " FILE\n";
    return 2;
}
