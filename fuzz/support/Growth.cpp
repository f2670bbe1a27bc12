// Asks a target's question of an input that grows, for scripts/growth.sh to count what it costs:
//
//     orvale_fuzz_growth                     lists the cases
//     orvale_fuzz_growth CASE SIZE           asks of an input of the case, of at least SIZE bytes

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "support/Target.h"

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

// An input is made of what stands before, of as many units as it takes, each told its place, and of what stands behind.
struct Case {
    const char* name;
    const char* target;
    std::string before;
    std::string (*unit)(std::int32_t place);
    std::string behind;
};

std::string Number(std::int32_t value) {
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes.push_back(static_cast<char>(static_cast<std::uint32_t>(value) >> shift));
    return bytes;
}

std::string Text(std::string_view ascii) {
    std::string bytes = Number(static_cast<std::int32_t>(ascii.size()));
    for (const char c : ascii)
        bytes += {c, '\0'};
    return bytes;
}

// The short texts of these inputs are as long in bytes as the SMS file wants them told.
std::string SmsText(std::string_view ascii) {
    return Number(static_cast<std::int32_t>(2 * ascii.size())) + Text(ascii).substr(4);
}

const std::string kQzsHead =
    "<QZ-QZS>\0\0"
    "20100726\0\0"s +
    Number(100);
const std::string kSmsHead = "<QZ-SMS>\0\0"s + Number(101);

// More entries than ever come: the reading ends with the file.
const std::string kMany = Number(0x7FFFFFFF);

std::string Suite(std::string_view root, std::string_view id, std::string_view rest) {
    return "<"s.append(root).append(" version=\"100\" id=\"").append(id).append("\">").append(rest);
}

constexpr std::string_view kDevice =
    "<profile><device><id>1</id><typeset><C00><id>5</id></C00><C01><id>104</id></C01></typeset></device></profile>";

const Case kCases[] = {
    {"qzs-contacts", "qzs", kQzsHead,
     [](std::int32_t) {
         return Number(1) + Number(1) + Number(5) + Text("John Smith") + Number(0) + Text("") + Number(0);
     },
     ""},
    {"qzs-fields", "qzs", kQzsHead + Number(1) + kMany,
     [](std::int32_t) { return Number(104) + Text("+1 555 0100") + Number(0) + Text("") + Number(0); }, ""},
    {"qzs-groups", "qzs", kQzsHead + Number(1) + Number(1) + Number(1) + Text("John") + Number(0) + Text("") + kMany,
     [](std::int32_t place) { return Number(place * 17 * 16) + Text("a"); }, ""},
    {"sms-messages", "sms", kSmsHead,
     [](std::int32_t) {
         return Number(1) + Number(1) + Number(1) + SmsText("a") + SmsText("1") + SmsText("hello") + SmsText("");
     },
     ""},
    {"ssy-contacts", "ssy", std::string(54, '\0'),
     [](std::int32_t) { return "John,Smith,,,,9,+1 555 0100,:a@b.c,\0"s; }, ""},
    {"ssy-pairs", "ssy", std::string(54, '\0') + "John,Smith,,,,",
     [](std::int32_t place) { return std::to_string(place % 27) + ",1,"; }, ":a\0"s},
    {"csv-contacts", "csv", "given name,mobile phone,\r\n",
     [](std::int32_t) { return "\"a \"\"b\"\"\",\"1,2\",\r\n"s; }, ""},
    {"csv-open-quotes", "csv", "given name,mobile phone,\r\n", [](std::int32_t) { return "\"a,\"b,\"c,\"d\r\n"s; }, ""},
    {"csv-blank-lines", "csv", "given name,\r\n", [](std::int32_t) { return "\r\n"s; }, ""},
    {"vcard-cards", "vcard", "",
     [](std::int32_t) { return "BEGIN:VCARD\r\nVERSION:2.1\r\nN:a;b\r\nTEL;CELL:1\r\nEND:VCARD\r\n"s; }, ""},
    {"vcard-numbers", "vcard", "BEGIN:VCARD\r\nVERSION:2.1\r\n", [](std::int32_t) { return "TEL;HOME;VOICE:1\r\n"s; },
     "END:VCARD\r\n"},
    {"vcard-mails", "vcard", "BEGIN:VCARD\r\nVERSION:2.1\r\n", [](std::int32_t) { return "EMAIL;INTERNET:a\r\n"s; },
     "END:VCARD\r\n"},
    {"vcard-addresses", "vcard", "BEGIN:VCARD\r\nVERSION:2.1\r\n",
     [](std::int32_t) { return "ADR;HOME:;;a;b;c;d;e\r\n"s; }, "END:VCARD\r\n"},
    {"vcard-folds", "vcard", "BEGIN:VCARD\r\nVERSION:2.1\r\nNOTE:a\r\n", [](std::int32_t) { return " =41\r\n"s; },
     "END:VCARD\r\n"},
    {"vcard-unknown-keys", "vcard", "BEGIN:VCARD\r\nVERSION:2.1\r\nNOTE:a\r\n", [](std::int32_t) { return "X:b\r\n"s; },
     "END:VCARD\r\n"},
    {"vcard-begins", "vcard", "", [](std::int32_t) { return "BEGIN:VCARD\r\n"s; }, ""},
    {"vcard-no-lines", "vcard", "", [](std::int32_t) { return "a"s; }, ""},
    {"vcalendar-texts", "vcalendar", "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\n",
     [](std::int32_t) { return "DESCRIPTION;ENCODING=QUOTED-PRINTABLE:=41\r\n"s; }, "END:VEVENT\r\nEND:VCALENDAR\r\n"},
    {"vcalendar-folds", "vcalendar",
     "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\nDESCRIPTION;ENCODING=QUOTED-PRINTABLE:\r\n",
     [](std::int32_t) { return "=41=\r\n"s; }, "END:VEVENT\r\nEND:VCALENDAR\r\n"},
    {"phonebook-contacts", "phonebook-xml",
     Suite("phonebook", "suite-phonebook", std::string(kDevice) + "<contactentries>"),
     [](std::int32_t) { return "<contact><device>1</device><C00>a</C00></contact>"s; },
     "</contactentries></phonebook>"},
    {"phonebook-fields", "phonebook-xml",
     Suite("phonebook", "suite-phonebook", std::string(kDevice) + "<contactentries><contact><device>1</device>"),
     [](std::int32_t) { return "<C01>1</C01>"s; }, "</contact></contactentries></phonebook>"},
    {"phonebook-types", "phonebook-xml", Suite("phonebook", "suite-phonebook", "<profile><device><id>1</id><typeset>"),
     [](std::int32_t place) {
         const std::string code = (place < 10 ? "C0" : "C") + std::to_string(place);
         return "<" + code + "><id>" + std::to_string(place) + "</id></" + code + ">";
     },
     "</typeset></device></profile><contactentries></contactentries></phonebook>"},
    {"phonebook-devices", "phonebook-xml", Suite("phonebook", "suite-phonebook", "<profile>"),
     [](std::int32_t place) { return "<device><id>" + std::to_string(place) + "</id></device>"; },
     "</profile><contactentries></contactentries></phonebook>"},
    {"calendar-items", "calendar-xml", Suite("calendar", "suite-calendar", "<profile></profile><calendarentries>"),
     [](std::int32_t) { return "<data><type>0</type><description>a</description></data>"s; },
     "</calendarentries></calendar>"},
    {"sms-xml-messages", "sms-xml", Suite("SMS", "suite-SMS", "<profile></profile><smsentries>"),
     [](std::int32_t) { return "<sms><content>a</content></sms>"s; }, "</smsentries></SMS>"},
    {"sms-xml-boxes", "sms-xml", Suite("SMS", "suite-SMS", "<profile>"),
     [](std::int32_t) { return "<boxitem><type>1</type></boxitem>"s; }, "</profile><smsentries></smsentries></SMS>"},
    {"email-xml-mails", "email-xml", Suite("email", "suite-email", "<profile></profile><emailentries>"),
     [](std::int32_t) { return "<data><accessory><file>a</file></accessory></data>"s; }, "</emailentries></email>"},
    {"email-xml-account", "email-xml",
     Suite("email", "suite-email", "<profile></profile><emailentries><data><account>"),
     [](std::int32_t) { return "<a>b</a>"s; }, "</account></data></emailentries></email>"},
    {"xml-elements", "xml", "<a>", [](std::int32_t) { return "<b>c</b> "s; }, "</a>"},
    {"xml-text-and-comments", "xml", "<a>", [](std::int32_t) { return "b<!--c-->"s; }, "</a>"},
    {"xml-sections", "xml", "<a>", [](std::int32_t) { return "<![CDATA[b]]>"s; }, "</a>"},
    {"xml-entities", "xml", "<!DOCTYPE a [<!ENTITY e \"b\">]><a>", [](std::int32_t) { return "&e;"s; }, "</a>"},
    // An element may have a thousand attributes; far more of them are refused in a straight line too.
    {"xml-attributes", "phonebook-xml", "<phonebook",
     [](std::int32_t place) { return " b" + std::to_string(place) + "='c'"; }, "/>"},
    {"xml-attributes-of-a-text", "xml", "<a", [](std::int32_t place) { return " b" + std::to_string(place) + "='c'"; },
     "/>"},
    {"xml-defaults", "phonebook-xml",
     "<!DOCTYPE phonebook [<!ATTLIST C00 a CDATA '' b CDATA ''>]>" + Suite("phonebook", "suite-phonebook", ""),
     [](std::int32_t) { return "<C00/>"s; }, "</phonebook>"},
    {"json-contacts", "json", "{\"kind\":\"contacts\",\"records\":[{}",
     [](std::int32_t) { return ",{\"fields\":[{\"type\":5,\"data\":\"a\"}]}"s; }, "]}"},
    {"json-fields", "json", "{\"kind\":\"contacts\",\"records\":[{\"fields\":[{}", [](std::int32_t) { return ",{}"s; },
     "]}]}"},
    {"json-groups", "json", "{\"kind\":\"contacts\",\"records\":[{\"fields\":[{\"groups\":[{\"id\":-1,\"name\":\"\"}",
     [](std::int32_t place) { return ",{\"id\":" + std::to_string(place * 17 * 16) + ",\"name\":\"\"}"; }, "]}]}]}"},
    {"json-columns", "json", "{\"kind\":\"contacts\",\"profile\":{\"columns\":[{\"type\":1,\"caption\":\"\"}",
     [](std::int32_t) { return ",{\"type\":1,\"caption\":\"a\"}"s; }, "]},\"records\":[]}"},
    {"json-keys", "json", "{\"kind\":\"contacts\",\"records\":[{\"storage\":1",
     [](std::int32_t place) { return ",\"a" + std::to_string(place) + "\":1"; }, "}]}"},
    {"json-text", "json", "{\"kind\":\"sms\",\"records\":[{\"content\":\"", [](std::int32_t) { return "a\\n"s; },
     "\"}]}"},
    {"registry-values", "registry", "[HKEY_CURRENT_USER\\SoftWare\\Tarnwick\\LogFiles]\r\n",
     [](std::int32_t) { return "\"a\\\\\"=dword:1\r\n"s; }, ""},
    {"registry-keys", "registry", "", [](std::int32_t) { return "[a]\r\n"s; }, ""},
    {"quoted-printable-codes", "quoted-printable", "\0"s, [](std::int32_t) { return "=41"s; }, ""},
    {"quoted-printable-signs", "quoted-printable", "\0"s, [](std::int32_t) { return "=="s; }, ""},
    {"quoted-printable-double", "quoted-printable", "\2"s, [](std::int32_t) { return "\x83\x5C;"s; }, ""},
    {"detection-lines", "detection", "", [](std::int32_t) { return "a\n"s; }, ""},
    {"detection-comments", "detection", "", [](std::int32_t) { return "<!---->"s; }, "<SMS id='suite-SMS'/>"},
    {"detection-declarations", "detection", "", [](std::int32_t) { return "<!>"s; }, "<SMS id='suite-SMS'/>"},
    {"detection-attributes", "detection", "<a", [](std::int32_t) { return " id"s; }, "='suite-SMS'>"},
};

}  // namespace

int main(int argc, char** argv) {
    if (argc == 1) {
        for (const Case& each : kCases)
            std::puts(each.name);
        return 0;
    }
    for (const Case& each : kCases) {
        if (argc != 3 || std::string_view(argv[1]) != each.name) continue;
        std::string input = each.before;
        const auto size = std::strtoul(argv[2], nullptr, 10);
        for (std::int32_t place = 0; input.size() < size; ++place)
            input += each.unit(place);
        const orvale::fuzz::Target* const target = orvale::fuzz::Target::Find(each.target);
        orvale::fuzz::Must(target != nullptr, "a case has its target");
        target->Ask(input + each.behind);
        return 0;
    }
    std::fputs("usage: orvale_fuzz_growth [CASE SIZE]\n", stderr);
    return 2;
}
