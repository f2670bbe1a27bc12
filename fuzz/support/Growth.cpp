// Asks a target's question of an input that grows, for scripts/growth.sh to count what it costs:
//
//     orvale_fuzz_growth                     lists the cases
//     orvale_fuzz_growth CASE SIZE           asks of an input of the case, of at least SIZE bytes
//
// The cases stand in fuzz/growth.cases.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "support/Cases.h"
#include "support/Target.h"

int main(int argc, char** argv) {
    using orvale::test::Spelled;
    for (const auto& each : orvale::test::Cases("growth.cases", {}, false)) {
        if (argc == 1) std::puts(each[0].c_str());
        if (argc != 3 || each[0] != argv[1]) continue;
        std::string_view before = each[2];
        std::string_view behind = each[4];
        std::string input = Spelled(before);
        const auto size = std::strtoul(argv[2], nullptr, 10);
        for (std::size_t place = 0; input.size() < size; ++place) {
            std::string_view unit = each[3];
            input += Spelled(unit, place);
        }
        const orvale::fuzz::Target* const target = orvale::fuzz::Target::Find(each[1]);
        orvale::fuzz::Must(target != nullptr, "a case has its target");
        target->Ask(input + Spelled(behind));
        return 0;
    }
    if (argc == 1) return 0;
    std::fputs("usage: orvale_fuzz_growth [CASE SIZE]\n", stderr);
    return 2;
}
