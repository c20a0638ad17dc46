# Doxygen's view of a header: the first sentence about the class that it is named after, or else its first sentence, also
# describes the file. Private nested classes are only declared: Doxygen would link to a list of them that it does not show. No
# line is added or removed, so that line numbers stay right.

/^(public|protected|private):$|^};$/ { isPrivate = /^private/ }
isPrivate && /^    (class|struct) [A-Z]+ .*{$/ { inNested = 1; sub(/ ?[:{].*$/, ";"); lines[FNR] = $0; next }
{ lines[FNR] = inNested ? "" : $0 }
/^    };$/ { inNested = 0 }

function Sentence(from,    text, i) {
    text = ""
    for (i = from; lines[i] ~ /^\/\/\/ [^ ]/; i++) text = text substr(lines[i], 4)
    if (match(text, /[.:]( |$)/)) text = substr(text, 1, RSTART - 1)
    sub(/^ /, "", text)
    return text "."
}

END {
    name = FILENAME
    sub(/^.*\//, "", name)
    class = name
    sub(/\.h$/, "", class)
    first = 0
    begin = 0
    for (i = 1; i <= FNR && !found; i++) {
        isText = lines[i] ~ /^\/\/\//
        if (isText && !begin) begin = i
        if (isText && !first) first = i
        if (!isText && lines[i] !~ /^template/) {
            if (begin && lines[i] ~ "^(class|struct) ([A-Z_]+ )?" class "([ :]|$)") found = begin
            begin = 0
        }
    }
    if (lines[first] ~ /\\file/) first = 0  # describes itself
    if (first == 1) lines[1] = "/// @file " name substr(lines[1], 4)
    else if (first) lines[1] = "/** @file " name " @brief " Sentence(found ? found : first) " */ " lines[1]
    for (i = 1; i <= FNR; i++) print lines[i]
}
