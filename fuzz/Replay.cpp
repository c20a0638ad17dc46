/// Has every property look at the kept inputs of its surface again: replay FOLDER [SURFACE].
#include "Input.h"

#include <filesystem>
#include <fstream>
#include <iterator>

int main(int argumentCount, char** arguments) {
    const std::filesystem::path folder = argumentCount > 1 ? arguments[1] : "";
    int without = 0, tried = 0;
    for (const fuzz::TARGET* const target : fuzz::TARGET::All()) {
        if (argumentCount > 2 && std::string_view(arguments[2]) != target->surface) {
            continue;
        }
        std::error_code missing;
        int count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder / target->surface, missing)) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string bytes{std::istreambuf_iterator<char>(file), {}};
            // Said before it is tried: nobody says it afterwards when the property is broken.
            std::printf("%s %s\n", target->surface, entry.path().filename().string().c_str());
            std::fflush(stdout);
            target->property(fuzz::INPUT(bytes));
            ++count;
        }
        without += count == 0 ? 1 : 0;
        ++tried;
        std::printf("%s: %d inputs\n", target->surface, count);
    }
    return tried != 0 ? without : 1;
}
