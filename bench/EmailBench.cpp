// A hundred thousand addresses, plain, quoted, with a domain literal and wrong ones, about half of them valid. The loop
// beside the split only looks for the '@' and copies nothing, so it is a limit and not a real peer.

#include <MLCore/net/CEMAIL.h>

#include <cstring>
#include <iterator>
#include <random>
#include <regex>
#include <string>
#include <vector>

#include "support/Workload.h"

namespace {

using namespace MLCore;

constexpr std::size_t kCount = 100'000;
constexpr const char* kLocalParts[] = {"john.smith", "marie-claire",      "sales+2024", "j_s",      "\"Smith, John\"",
                                       "\"a@b\".c",  "jos\xC3\xA9.perez", "first last", "two..dots"};
constexpr const char* kDomains[] = {"example.com",  "mail.example.co.uk", "sub-domain.example.net",
                                    "example.org.", "[192.168.10.25]",    "[10.0.0.1",
                                    "exam ple.com"};

std::vector<std::string> MakeAddresses() {
    std::mt19937 random(822);
    std::uniform_int_distribution<std::size_t> localPart(0, std::size(kLocalParts) - 1);
    std::uniform_int_distribution<std::size_t> domain(0, std::size(kDomains) - 1);
    std::vector<std::string> addresses;
    for (std::size_t i = 0; i < kCount; ++i) {
        addresses.push_back(std::to_string(i) + '.' + kLocalParts[localPart(random)] + '@' + kDomains[domain(random)]);
    }
    return addresses;
}

// The same rules. Only quotes after a backslash are understood differently, which the split counts; there are none
// here.
std::regex MakePattern() {
    const std::string atom = R"([!#$%&'*+\-/0-9=?A-Z^_`a-z{|}~]+)";
    const auto words = [](const std::string& word) { return word + "(?:\\." + word + ")*\\.?"; };
    const std::string quoted = R"("(?:[^"\\\n\r]|\\[\s\S])*")";
    const std::string literal = R"(\[(?:[^\[\]\\\n\r]|\\[\s\S])*\])";
    return std::regex(words("(?:" + atom + '|' + quoted + ')') + '@' + words("(?:" + atom + '|' + literal + ')'),
                      std::regex::optimize);
}

std::int64_t FindSeparator(const char* address) {
    bool isQuoted = false;
    for (const char* at = address;; ++at) {
        at += std::strcspn(at, "@\"");
        if (*at == '\0' || (*at == '@' && !isQuoted)) {
            return at - address;
        }
        isQuoted = isQuoted != (*at == '"');
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> addresses = MakeAddresses();
    const std::regex pattern = MakePattern();
    bench::WORKLOAD("split an address", kCount)
        .Add("MLCore",
             [&](std::size_t i) {
                 return static_cast<std::int64_t>(CEMAIL(addresses[i].c_str()).GetLocalPart().size());
             })
        .Add("strcspn, no copies", [&](std::size_t i) { return FindSeparator(addresses[i].c_str()); });
    bench::WORKLOAD("split and check an address", kCount)
        .Add("MLCore", [&](std::size_t i) { return CEMAIL(addresses[i].c_str()).IsValid(); })
        .Add("std::regex", [&](std::size_t i) { return std::regex_match(addresses[i], pattern) ? 1 : 0; });
    return bench::Run(argc, argv);
}
