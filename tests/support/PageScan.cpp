#include "support/PageScan.h"

#include <algorithm>
#include <map>

#include "command/html/EmbeddedPage.h"

namespace orvale::test {
namespace {

// From a "<" to the ">" that ends the tag, which may stand in quotes before.
std::string_view TagAt(std::string_view text, std::size_t open) {
    bool quoted = false;
    for (std::size_t i = open; i < text.size(); ++i) {
        if (text[i] == '"') quoted = !quoted;
        if (text[i] == '>' && !quoted) return text.substr(open, i + 1 - open);
    }
    return text.substr(open);
}

std::string_view NameOf(std::string_view tag) {
    return tag.substr(0, tag.find_first_of(" >"));
}

// Whether a tag is one of the template's with its holes filled by what stays within the quotes.
bool IsInstance(std::string_view tag, std::string_view model) {
    const std::size_t open = std::min(model.find("{{"), model.size());
    if (!tag.starts_with(model.substr(0, open))) return false;
    if (open == model.size()) return tag.size() == model.size();
    const std::string_view rest = model.substr(model.find("}}") + 2);
    for (std::size_t end = open; end <= tag.size(); ++end) {
        if (IsInstance(tag.substr(end), rest)) return true;
        if (end == tag.size() || std::string_view("\"<>'`").find(tag[end]) != std::string_view::npos) return false;
    }
    return false;
}

std::string_view BehindHead(std::string_view page) {
    const std::size_t body = page.find("</script>");
    return body == std::string_view::npos ? std::string_view() : page.substr(body);
}

const std::multimap<std::string, std::string, std::less<>>& Models() {
    static const auto models = [] {
        std::multimap<std::string, std::string, std::less<>> all;
        const std::string_view text = BehindHead(kPageTemplate);
        for (std::size_t open = text.find('<'); open != std::string_view::npos; open = text.find('<', open + 1)) {
            const std::string_view tag = TagAt(text, open);
            if (!tag.starts_with("<!")) all.emplace(NameOf(tag), tag);
        }
        return all;
    }();
    return models;
}

bool IsAllowedAddress(std::string_view tag) {
    constexpr std::string_view kHref = " href=\"";
    const std::size_t at = tag.find(kHref);
    if (at == std::string_view::npos) return true;
    const std::string_view address = tag.substr(at + kHref.size());
    for (const std::string_view start : {"#", "http://", "https://", "mailto:", "tel:"})
        if (address.starts_with(start)) return true;
    return false;
}

}  // namespace

std::string MarkupBeyondTemplate(std::string_view page) {
    const std::string_view body = BehindHead(page);
    if (body.empty()) return "no page at all";
    for (std::size_t open = body.find('<'); open != std::string_view::npos; open = body.find('<', open + 1)) {
        const std::string_view tag = TagAt(body, open);
        const auto [first, last] = Models().equal_range(NameOf(tag));
        const bool known = std::any_of(first, last, [&](const auto& each) { return IsInstance(tag, each.second); });
        if (!known || !IsAllowedAddress(tag)) return std::string(tag.substr(0, 200));
        open += tag.size() - 1;
    }
    return "";
}

std::vector<std::string> TagsOf(std::string_view page) {
    const std::string_view body = BehindHead(page);
    std::vector<std::string> tags;
    for (std::size_t open = body.find('<'); open != std::string_view::npos; open = body.find('<', open + 1)) {
        std::string bare;
        bool quoted = false;
        for (const char c : TagAt(body, open)) {
            if (c == '"') quoted = !quoted;
            if (!quoted) bare += c;
        }
        tags.push_back(bare);
    }
    return tags;
}

}  // namespace orvale::test
