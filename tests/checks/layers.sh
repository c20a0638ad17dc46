#!/usr/bin/env bash
# A folder of the library includes only the folders that docs/architecture.md puts below it, every include of ours is spelled
# <MLCore/...>, names a file that exists, and no file includes itself by a detour.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2

find MLCore -name '*.h' -o -name '*.cpp' | sort | xargs awk '
    function complain(where, text) { print where ": " text; errors++ }

    # Depth first; "open" marks the files on the way from the start to here.
    function walk(file, way,    i, count, next_files) {
        state[file] = "open"
        count = split(includes[file], next_files, " ")
        for (i = 1; i <= count; i++) {
            if (state[next_files[i]] == "open")
                complain(place[file, next_files[i]], "circular include: " way " -> " next_files[i])
            else if (state[next_files[i]] == "" && next_files[i] in isFile)
                walk(next_files[i], way " -> " next_files[i])
        }
        state[file] = "done"
    }

    BEGIN {
        # The block of the page: "a < b < c", "x: a b" and "upward: FILE -> FILE".
        while ((getline line < "docs/architecture.md") > 0) {
            if (line ~ /^```layers/) { inside = 1; continue }
            if (line ~ /^```/) inside = 0
            if (!inside || line == "") continue
            gsub(/[ \t]+/, " ", line)
            if (line ~ /^upward: /) { sub(/^upward: /, "", line); upward[line] = 1; unused[line] = 1; continue }
            if (line ~ /</) {
                count = split(line, folder, / *< */)
                for (i = 1; i <= count; i++) {
                    known[folder[i]] = 1
                    for (j = 1; j < i; j++) below[folder[i], folder[j]] = 1
                }
            } else if (line ~ /:/) {
                count = split(line, folder, /[: ]+/)
                known[folder[1]] = 1
                for (i = 2; i <= count; i++) below[folder[1], folder[i]] = 1
            }
            layers++
        }
        if (!layers) complain("docs/architecture.md:1", "no block of layers found")
    }

    FNR == 1 {
        isFile[FILENAME] = 1
        files[++fileCount] = FILENAME
        depth = split(FILENAME, part, "/")
        # MLCore/MLCore.h stands above all folders.
        own = depth > 2 ? part[2] : ""
        if (own != "" && !(own in known))
            complain(FILENAME ":1", "the folder " own " is not in the block of layers")
    }

    /^[ \t]*#[ \t]*include[ \t]*"/ { complain(FILENAME ":" FNR, "spell it <MLCore/...>: " $0); next }

    /^[ \t]*#[ \t]*include[ \t]*</ {
        target = $0
        sub(/^[^<]*</, "", target)
        sub(/>.*/, "", target)
        if (target !~ /^MLCore\//) {
            if (target ~ /\.\.?\//) complain(FILENAME ":" FNR, "spell it <MLCore/...>: " $0)
            next
        }
        includes[FILENAME] = includes[FILENAME] " " target
        place[FILENAME, target] = FILENAME ":" FNR
        if (own == "") next
        if (target == "MLCore/MLCore.h") {
            complain(FILENAME ":" FNR, "the library itself never includes <MLCore/MLCore.h>")
            next
        }
        split(target, part, "/")
        if ((FILENAME " -> " target) in upward) { delete unused[FILENAME " -> " target]; next }
        if (part[2] != own && !((own, part[2]) in below))
            complain(FILENAME ":" FNR, own " must not include " part[2] ": <" target ">")
        if (part[2] == "platform" && part[3] ~ /^(posix|win32)$/ && FILENAME !~ ("^MLCore/platform/" part[3] "/") \
            && FILENAME !~ /^MLCore\/platform\/[^\/]*$/)
            complain(FILENAME ":" FNR, "only the platform folder includes <" target ">")
    }

    END {
        for (i = 1; i <= fileCount; i++) {
            count = split(includes[files[i]], targets, " ")
            for (j = 1; j <= count; j++)
                if (!(targets[j] in isFile)) complain(place[files[i], targets[j]], "no such file: <" targets[j] ">")
        }
        for (i = 1; i <= fileCount; i++)
            if (state[files[i]] == "") walk(files[i], files[i])
        for (line in unused) complain("docs/architecture.md:1", "allowed, but there is no such include: " line)
        if (!fileCount) complain("MLCore:1", "no files found")
        exit errors > 0
    }'
