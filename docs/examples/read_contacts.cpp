// Prints the contacts of a file, in whatever format its content shows it to be.
#include <host/RecordFile.h>
#include <platform/Text.h>

#include <iostream>
#include <stdexcept>
#include <string>

int main(int argc, char** argv) try {
    if (argc != 2) throw std::runtime_error("usage: read_contacts FILE");
    const orvale::LoadedLibrary library(ORVALE_MODULE);
    const orvale::FormatInfo* const format = orvale::DetectByContent(argv[1]);
    if (format == nullptr || format->kind != orvale::Kind::kContacts)
        throw std::runtime_error("no contacts that can be read");

    orvale::RecordFile file(library, format->format);
    file.Open(argv[1], orvale::OpenMode::kRead);
    if (!file.ReadHeader() || file.Verify() != VERIFY_OK) throw std::runtime_error("no whole file of its format");

    std::uint64_t wholeEnd = file.Position();
    for (const CContactItem& contact : file.Records<CContactItem>()) {
        const CContactField* const name = contact.GetNameField();
        std::cout << (name != nullptr ? orvale::ToUtf8(name->Data) : "(no name)") << '\n';
        for (const auto& field : contact.fields)
            std::cout << "  " << ContactFieldCaption(field->Type) << ": " << orvale::ToUtf8(field->Data) << '\n';
        wholeEnd = file.Position();
    }
    if (format->endRule == orvale::EndRule::kBytesLeft && wholeEnd < file.Length())
        throw std::runtime_error("damaged from byte " + std::to_string(wholeEnd) + " on");
    return 0;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
