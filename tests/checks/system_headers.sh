#!/usr/bin/env bash
# The platform folder alone knows an operating system: everywhere else in the library and in the examples an include is a C++
# standard header or one of ours. And no public header includes <windows.h>, but for platform/WinTypes.h.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2

standard='algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes climits
clocale cmath codecvt compare complex concepts condition_variable coroutine csetjmp csignal cstdarg cstddef cstdint cstdio
cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem forward_list fstream functional future
initializer_list iomanip ios iosfwd iostream istream iterator latch limits list locale map memory memory_resource mutex new
numbers numeric optional ostream queue random ranges ratio regex scoped_allocator semaphore set shared_mutex source_location
span sstream stack stdexcept stop_token streambuf string string_view strstream syncstream system_error thread tuple
type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant vector version'

find MLCore examples -name '*.h' -o -name '*.cpp' | sort | xargs awk -v standard="$standard" '
    function complain(text) { print FILENAME ":" FNR ": " text; errors++ }
    BEGIN { count = split(standard, name, /[ \n]+/); for (i = 1; i <= count; i++) allowed[name[i]] = 1 }
    FNR == 1 { files++ }
    /^[ \t]*#[ \t]*include/ {
        target = $0
        sub(/^[ \t]*#[ \t]*include[ \t]*/, "", target)
        if (target !~ /^[<"]/) { complain("an include whose name is a macro"); next }
        quoted = target ~ /^"/
        target = substr(target, 2)
        sub(/[>"].*/, "", target)
        platform = FILENAME ~ /^MLCore\/platform\//
        if (FILENAME ~ /\.h$/ && FILENAME !~ /^MLCore\/platform\/(common|posix|win32)\// && FILENAME != "MLCore/platform/WinTypes.h" \
            && tolower(target) == "windows.h")
            complain("a public header must not include <windows.h>")
        else if (!platform && !quoted && !(target in allowed) && target !~ /^MLCore\//)
            complain("not a C++ standard header: <" target ">; what the system offers comes through <MLCore/platform/...>")
        else if (!platform && quoted && FILENAME ~ /^MLCore\//)
            complain("spell it <MLCore/...>: \"" target "\"")
    }
    END { if (!files) { print "MLCore:1: no files found"; errors++ } exit errors > 0 }'
