// Prints the names of a vCard file's contacts and copies them into a native contact file.
#include <host/RecordFile.h>
#include <platform/Text.h>
#include <exception>
#include <iostream>
#include <stdexcept>

int main(int argc, char** argv) try {
    if (argc != 3) throw std::runtime_error("usage: contacts INPUT.vcf OUTPUT.qzs");
    const orvale::LoadedLibrary library(ORVALE_MODULE);
    orvale::RecordFile input(library, orvale::FileFormat::kVCard);
    orvale::RecordFile output(library, orvale::FileFormat::kQzs);
    input.Open(argv[1], orvale::OpenMode::kRead);
    output.Open(argv[2], orvale::OpenMode::kCreate);
    bool written = output.WriteHeader();
    for (const CContactItem& contact : input.Records<CContactItem>()) {
        const CContactField* name = contact.GetNameField();
        std::cout << (name != nullptr ? orvale::ToUtf8(name->Data) : "(no name)") << '\n';
        written = written && output.Write(contact);
    }
    return written ? 0 : 1;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
