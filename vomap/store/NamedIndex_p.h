#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace VTObjects {

/// A name, and which one of those that bear it: names should be unique, but nobody enforces it.
using NamedKey = std::pair<std::wstring, int>;

/// The groups of a team or the schemes of a group by their keys, which also keep their order. The
/// list must outlive it.
template <typename Named>
class NamedIndex
{
public:
    explicit NamedIndex(const std::vector<Named> &list)
    {
        std::map<std::wstring, int> occurrences;
        for (const Named &named : list) {
            keys.emplace_back(named.name.text(), occurrences[named.name.text()]++);
            found.emplace(keys.back(), &named);
        }
    }

    const Named *find(const NamedKey &key) const
    {
        const auto at = found.find(key);
        return at == found.end() ? nullptr : at->second;
    }
    const std::vector<NamedKey> &inOrder() const { return keys; }

private:
    std::vector<NamedKey> keys;
    std::map<NamedKey, const Named *> found;
};

} // namespace VTObjects
