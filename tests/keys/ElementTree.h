/// An element of a key stream with all that is in it, written and read whole.
#pragma once

#include <MLCore/keys/CKEYREADER.h>
#include <MLCore/keys/CKEYWRITER.h>

#include <map>
#include <span>
#include <string>
#include <vector>

namespace elementtree {

struct TREE {
    std::string name = "r";
    std::map<std::string, std::string> attributes;
    std::string text;
    std::vector<TREE> children;
    bool operator==(const TREE&) const = default;
};

inline void Write(MLCore::CKEYWRITER& writer, const TREE& tree) {
    writer.BeginElement(tree.name);
    for (const auto& [name, value] : tree.attributes) writer.SetAttribute(name, value);
    if (!tree.text.empty()) writer.SetText(tree.text);
    for (const TREE& child : tree.children) Write(writer, child);
    writer.EndElement();
}

/// Asks for the attributes of these names.
inline TREE Read(MLCore::CKEYREADER& reader, std::span<const char* const> names) {
    TREE tree{reader.GetElementName(), {}, "", {}};
    reader.BeginElement(tree.name);
    for (const char* const name : names)
        if (reader.HasAttribute(name) != 0) tree.attributes[name] = reader.GetAttribute(name);
    tree.text = reader.GetText();
    while (reader.HasElement() != 0) tree.children.push_back(Read(reader, names));
    reader.EndElement();
    return tree;
}

}  // namespace elementtree
