// Writes a message suite: what the phone can store, and one message. Reads it back and prints what it holds.
#include <host/RecordFile.h>
#include <platform/Text.h>

#include <iostream>
#include <memory>
#include <stdexcept>

namespace {

CSMSProfile MakeProfile() {
    CSMSProfile phone;
    phone.handset = u"X100";
    phone.dllname = u"x100.dll";
    phone.config = SMMD_HAS_SEND;
    phone.storageIds = {SMS_STORAGE_PHONE_MEMORY};
    phone.storageNames = {u"Phone"};
    auto inbox = std::make_unique<CSMSBoxItem>();
    inbox->type = SMS_BOX_INBOX;
    inbox->name = u"Received";
    inbox->capacity = 200;
    inbox->config = SMBX_HAS_DELETE | SMBX_HAS_REPLY;
    phone.boxes.push_back(std::move(inbox));
    return phone;
}

CSMSItem MakeMessage() {
    CSMSItem message;
    message.storageid = SMS_STORAGE_PHONE_MEMORY;
    message.listtype = SMS_BOX_INBOX;
    message.name = orvale::FromUtf8("Jürgen");
    message.phonenumber = u"+493023125015";
    message.content = u"See you at six";
    message.time = u"2010-07-26 06:00:15";
    return message;
}

}  // namespace

int main(int argc, char** argv) try {
    if (argc != 2) throw std::runtime_error("usage: write_suite OUTPUT.xml");
    const orvale::LoadedLibrary library(ORVALE_MODULE);
    orvale::RecordFile suite(library, orvale::FileFormat::kSmsXml);
    suite.Open(argv[1], orvale::OpenMode::kCreate);
    suite.SetProfile(MakeProfile());
    const bool written = suite.WriteHeader() && suite.Write(MakeMessage());
    if (!suite.Close() || !written) throw std::runtime_error("the suite can't be written");

    suite.Open(argv[1], orvale::OpenMode::kRead);
    if (!suite.ReadHeader() || suite.Verify() != VERIFY_OK) throw std::runtime_error("the suite can't be read back");
    if (const auto* const phone = suite.GetProfile<CSMSProfile>())
        std::cout << orvale::ToUtf8(phone->handset) << ": " << phone->boxes.size() << " box\n";
    for (const CSMSItem& message : suite.Records<CSMSItem>())
        std::cout << orvale::ToUtf8(message.name) << ": " << orvale::ToUtf8(message.content) << '\n';
    return 0;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
