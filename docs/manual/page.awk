# Doxygen's view of a page: each heading gets a label made of the page's path and the heading's text, and each link within the
# project points to such a label or to a header. Links to other files, which the manual lacks, become plain text.

function Label(text) {
    text = tolower(text)
    gsub(/[`'"():,.]/, "", text)
    gsub(/[^a-z0-9]/, "-", text)
    return text
}

# The path of a link, from the top of the project.
function Resolve(link,    parts, count, i, kept, depth) {
    count = split(folder link, parts, "/")
    depth = 0
    for (i = 1; i <= count; i++) {
        if (parts[i] == "..") depth--
        else if (parts[i] != ".") kept[++depth] = parts[i]
    }
    link = kept[1]
    for (i = 2; i <= depth; i++) link = link "/" kept[i]
    return link
}

function Target(link,    anchor) {
    anchor = ""
    if (match(link, /#/)) {
        anchor = "-" substr(link, RSTART + 1)
        link = substr(link, 1, RSTART - 1)
    }
    link = link == "" ? page : Resolve(link)
    if (link == "README.md" && anchor == "") return "@ref index"
    if (link ~ /\.md$/) {
        sub(/\.md$/, "", link)
        return "#" Label(link) anchor
    }
    if (link ~ /^MLCore\/.*\.h$/) return "@ref " link
    return system("test -e '" link "'") == 0 ? "" : link  # dead: left for the check to find
}

FNR == 1 {
    page = FILENAME
    if (index(page, ENVIRON["PWD"] "/") == 1) page = substr(page, length(ENVIRON["PWD"]) + 2)
    folder = page
    sub(/[^\/]*$/, "", folder)
    label = page
    sub(/\.md$/, "", label)
    label = Label(label)
}

/^```/ { inCode = !inCode }
inCode { print; next }

/^# / { print $0 (page == "README.md" ? "" : " {#" label "}"); next }
/^##+ / {
    title = $0
    sub(/^#+ /, "", title)
    print $0 " {#" label "-" Label(title) "}"
    next
}

{
    rest = $0
    line = ""
    while (match(rest, /\]\([^)]*\)/)) {  # the text of a link may begin on an earlier line
        line = line substr(rest, 1, RSTART - 1)
        target = substr(rest, RSTART + 2, RLENGTH - 3)
        rest = substr(rest, RSTART + RLENGTH)
        if (target !~ /^[a-z]+:/) target = Target(target)
        if (target != "") line = line "](" target ")"
        else if (match(line, /\[[^[]*$/)) line = substr(line, 1, RSTART - 1) substr(line, RSTART + 1)
    }
    print line rest
}
