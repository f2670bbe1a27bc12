#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>

namespace {

// What each folder may include beside itself. The host and its command see the frame by one header alone.
const std::map<std::string, std::set<std::string>> kMayInclude = {
    {"platform", {}},
    {"records", {"platform"}},
    {"frame", {"platform", "records"}},
    {"native", {"platform", "records", "frame"}},
    {"text", {"platform", "records", "frame"}},
    {"xml", {"platform", "records", "frame"}},
    {"module", {"platform", "records", "frame", "native", "text", "xml"}},
    {"host", {"platform", "records", "frame/FileInterface.h"}},
    {"command", {"platform", "records", "frame/FileInterface.h", "host"}},
};

// The tree of the XML library has one reader; all others have the document that hides it.
bool MayIncludeTree(const std::string& source) {
    return source.starts_with("xml/tree/") || source == "xml/XMLDocument.cpp";
}

// The same of the rooms of the command. Its sources outside of them put all together, and the table of formats has to
// know the formats.
const std::map<std::string, std::set<std::string>> kRoomMayInclude = {
    {"console", {}},
    {"formats", {"console"}},
    {"scan", {"console", "formats"}},
    {"show", {"console"}},
    {"json", {"console", "formats"}},
    {"exchange", {"console", "formats", "scan"}},
    {"html", {"formats", "json", "show"}},
    {"files", {"console", "formats", "scan", "json"}},
    {"verbs", {"console", "formats", "show", "json", "html", "files"}},
    {"line", {"console", "formats"}},
};

// The room of a source or a header of the command; empty for what stands outside of them.
std::string RoomOf(const std::string& path) {
    const std::size_t begin = path.find('/') + 1;
    const std::size_t end = path.find('/', begin);
    return path.starts_with("command/") && end != std::string::npos ? path.substr(begin, end - begin) : "";
}

bool RoomMayInclude(const std::string& source, const std::string& header) {
    const std::string from = RoomOf(source);
    const std::string to = RoomOf(header);
    if (from.empty() || from == to || !header.starts_with("command/") || source == "command/formats/FormatTable.cpp")
        return true;
    return kRoomMayInclude.contains(from) && kRoomMayInclude.at(from).contains(to);
}

// Of the headers in pointed brackets, those of the operating system belong to the platform, others to one place each.
bool MayIncludeForeign(const std::string& source, const std::string& header) {
    if (header.find_first_of("/.") == std::string::npos || source.starts_with("platform/")) return true;
    return (header.starts_with("libxml/") && source.starts_with("xml/tree/")) ||
           (header.starts_with("nlohmann/") &&
            (source.starts_with("command/json/") ||
             (source.starts_with("command/verbs/") && source.ends_with("Json.cpp")))) ||
           (header.starts_with("CLI/") && source == "command/line/Arguments.cpp") ||
           (header == "sha2.h" && source == "command/files/Fingerprint.cpp") ||
           (header.starts_with("gmime/") && source == "command/exchange/GMimeLibrary.h") ||
           (header.starts_with("libical/") && source == "command/exchange/IcalLibrary.h");
}

}  // namespace

TEST(Structure, IncludesPointDownward) {
    const std::filesystem::path root = ORVALE_SOURCES;
    std::size_t seen = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
        const std::string source = entry.path().lexically_relative(root).generic_string();
        const std::string folder = source.substr(0, source.find('/'));
        ASSERT_TRUE(kMayInclude.contains(folder)) << source;
        std::ifstream in(entry.path());
        for (std::string line; std::getline(in, line);) {
            const std::size_t open = line.find_first_of("<\"");
            if (line.find("#") != line.find_first_not_of(" \t") || line.find("include") > open ||
                open == std::string::npos)
                continue;
            const std::string header = line.substr(open + 1, line.find_first_of(">\"", open + 1) - open - 1);
            const std::string target = header.substr(0, header.find('/'));
            const auto& allowed = kMayInclude.at(folder);
            const bool isOurs = (target == folder || allowed.contains(target) || allowed.contains(header)) &&
                                (!header.starts_with("xml/tree/") || MayIncludeTree(source)) &&
                                RoomMayInclude(source, header);
            EXPECT_TRUE(line[open] == '"' ? isOurs : MayIncludeForeign(source, header))
                << source << " includes " << header;
            ++seen;
        }
    }
    EXPECT_GT(seen, 100U);
}
