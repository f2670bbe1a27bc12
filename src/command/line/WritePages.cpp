// Writes what is installed beside the command and comes from its tables: the manual pages and the completions.
#include <filesystem>
#include <fstream>
#include <iostream>

#include "command/line/Completions.h"
#include "command/line/Manual.h"

int main(int count, char** words) try {
    if (count != 4) throw std::runtime_error("usage: orvale_pages OUTPUT-FOLDER FOLDER-OF-FORMAT-PAGES YYYY-MM-DD");
    const std::filesystem::path folder = words[1];
    const std::string date = words[3];
    const struct {
        const char* name;
        std::string text;
    } kPages[] = {
        {"orvale.1", orvale::CommandPage(date)},   {"orvale.5", orvale::FormatsPage(words[2], date)},
        {"orvale.bash", orvale::BashCompletion()}, {"_orvale", orvale::ZshCompletion()},
        {"orvale.fish", orvale::FishCompletion()},
    };
    std::filesystem::create_directories(folder);
    for (const auto& page : kPages) {
        std::ofstream out(folder / page.name, std::ios::binary);
        if (!(out << page.text << std::flush)) throw std::runtime_error("can't write " + (folder / page.name).string());
    }
    return 0;
} catch (const std::exception& error) {
    std::cerr << "orvale_pages: " << error.what() << '\n';
    return 1;
}
