#!/usr/bin/env bash
# A room of the library includes only the rooms that its line in docs/architecture.md names, and of those only the front: a header
# in a room's detail/ belongs to that room and to its tests. Every include of ours is spelled <MLCore/...>, names a file that
# exists, a source includes its own header first, and no file includes itself by a detour.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 2

find MLCore tests examples bench fuzz \( -name '*.h' -o -name '*.cpp' \) | sort | xargs awk '
    function complain(where, text) { print where ": " text; errors++ }

    # One system'"'"'s side of a header of the platform room, unless it completes a source of common/.
    function headerOf(source,    header, shared) {
        header = source
        sub(/\.cpp$/, ".h", header)
        if (header in isFile) return header
        shared = source
        if (sub(/\/(posix|win32)\//, "/common/", shared) && shared in isFile) return ""
        sub(/^MLCore\/platform\/(common|posix|win32)\//, "MLCore/platform/", header)
        return header
    }

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
        # The block of the page: "room, room: the rooms below".
        while ((getline line < "docs/architecture.md") > 0) {
            if (line ~ /^```layers/) { inside = 1; continue }
            if (line ~ /^```/) inside = 0
            if (!inside || line == "") continue
            split(line, half, /: */)
            count = split(half[1], rooms, /, */)
            belowCount = split(half[2], belowRooms, / +/)
            for (i = 1; i <= count; i++) {
                known[rooms[i]] = 1
                for (j = 1; j <= belowCount; j++) {
                    below[rooms[i], belowRooms[j]] = 1
                    if (!(belowRooms[j] in known)) complain("docs/architecture.md:1", belowRooms[j] " has no line above " rooms[i])
                }
            }
            layers++
        }
        if (!layers) complain("docs/architecture.md:1", "no block of layers found")
    }

    FNR == 1 {
        isFile[FILENAME] = 1
        files[++fileCount] = FILENAME
        depth = split(FILENAME, part, "/")
        isLibrary = part[1] == "MLCore"
        # MLCore/MLCore.h stands above all rooms; the tests mirror them.
        own = (isLibrary || part[1] == "tests") && depth > 2 ? part[2] : ""
        if (isLibrary && own != "" && !(own in known))
            complain(FILENAME ":1", "the room " own " is not in the block of layers")
        used[own] = 1
    }

    /^[ \t]*#[ \t]*include[ \t]*"/ { if (isLibrary) complain(FILENAME ":" FNR, "spell it <MLCore/...>: " $0); next }

    /^[ \t]*#[ \t]*include[ \t]*</ {
        target = $0
        sub(/^[^<]*</, "", target)
        sub(/>.*/, "", target)
        if (target !~ /^MLCore\//) {
            if (isLibrary && target ~ /\.\.?\//) complain(FILENAME ":" FNR, "spell it <MLCore/...>: " $0)
            next
        }
        if (includes[FILENAME] == "") first[FILENAME] = target
        includes[FILENAME] = includes[FILENAME] " " target
        place[FILENAME, target] = FILENAME ":" FNR
        split(target, part, "/")
        if (target ~ /\/detail\// && part[2] != own)
            complain(FILENAME ":" FNR, "only " part[2] " and its tests include its detail/: <" target ">")
        side = part[2] == "platform" && part[3] ~ /^(common|posix|win32)$/ ? part[3] : ""
        if (side != "" && (FILENAME !~ /^MLCore\/platform\// || (FILENAME ~ /\/(posix|win32)\// && side != "common" && FILENAME !~ ("/" side "/"))))
            complain(FILENAME ":" FNR, "only the platform room includes <" target ">")
        if (!isLibrary || own == "") next
        if (target == "MLCore/MLCore.h")
            complain(FILENAME ":" FNR, "the library itself never includes <MLCore/MLCore.h>")
        else if (part[2] != own && !((own, part[2]) in below))
            complain(FILENAME ":" FNR, own " must not include " part[2] ": <" target ">")
    }

    END {
        for (i = 1; i <= fileCount; i++) {
            count = split(includes[files[i]], targets, " ")
            for (j = 1; j <= count; j++)
                if (!(targets[j] in isFile)) complain(place[files[i], targets[j]], "no such file: <" targets[j] ">")
            if (files[i] ~ /^MLCore\/.*\.cpp$/) {
                header = headerOf(files[i])
                if (header in isFile && first[files[i]] != header)
                    complain(files[i] ":1", "a source includes its own header first: <" header ">")
            }
        }
        for (i = 1; i <= fileCount; i++)
            if (state[files[i]] == "") walk(files[i], files[i])
        for (room in known) if (!(room in used)) complain("docs/architecture.md:1", "there is no room " room)
        if (!fileCount) complain("MLCore:1", "no files found")
        exit errors > 0
    }'
