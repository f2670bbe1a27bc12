// Converts a native contact file to vCard, reads back what it wrote and tells what did not survive.
#include <host/LossReport.h>
#include <host/RecordFile.h>

#include <iostream>
#include <stdexcept>
#include <string>

namespace {

using orvale::FileFormat;

orvale::RecordFile OpenToRead(const orvale::LoadedLibrary& library, FileFormat format, const std::string& path) {
    orvale::RecordFile file(library, format);
    file.Open(path, orvale::OpenMode::kRead);
    if (!file.ReadHeader() || file.Verify() != VERIFY_OK) throw std::runtime_error(path + ": no whole file");
    return file;
}

void Convert(const orvale::LoadedLibrary& library, const std::string& from, const std::string& to) {
    orvale::RecordFile input = OpenToRead(library, FileFormat::kQzs, from);
    orvale::RecordFile output(library, FileFormat::kVCard);
    output.Open(to, orvale::OpenMode::kCreate);
    bool written = output.WriteHeader();
    for (const CContactItem& contact : input.Records<CContactItem>())
        written = written && output.Write(contact);
    if (!output.Close() || !written) throw std::runtime_error(to + ": can't be written");
}

orvale::LossReport Compare(const orvale::LoadedLibrary& library, const std::string& from, const std::string& to) {
    orvale::RecordFile input = OpenToRead(library, FileFormat::kQzs, from);
    orvale::RecordFile output = OpenToRead(library, FileFormat::kVCard, to);
    orvale::LossReport report("contact");
    std::size_t number = 0;
    for (const CContactItem& contact : input.Records<CContactItem>()) {
        const CContactItem* const back = output.Read<CContactItem>();
        if (back == nullptr) throw std::runtime_error(to + ": can't be read back");
        report.Compare(orvale::FactsOf(contact), orvale::FactsOf(*back), ++number);
    }
    return report;
}

}  // namespace

int main(int argc, char** argv) try {
    if (argc != 3) throw std::runtime_error("usage: convert_contacts INPUT.qzs OUTPUT.vcf");
    const orvale::LoadedLibrary library(ORVALE_MODULE);
    Convert(library, argv[1], argv[2]);
    const orvale::LossReport report = Compare(library, argv[1], argv[2]);
    for (const std::string& line : report.Lines())
        std::cout << line << '\n';
    return report.HasLoss() ? 3 : 0;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
