#include "base/platform.h"

#include "base/chars.h"
#include "base/syserr.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <string>
#include <string_view>

// A store of string values in memory. It starts empty, as a registry does that
// knows nothing of the program; names are compared without case.

namespace
{

struct nocase {
    bool operator()(const std::string &a, const std::string &b) const
    {
        return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                            [](char x, char y) { return upper(x) < upper(y); });
    }
    static uint8_t upper(char ch)
    {
        return charupper(static_cast<uint8_t>(ch));
    }
};

struct keyrecord {
    std::map<std::string, std::string, nocase> values;
};

// By the root's digit and the path of keys, without backslashes at its ends.
std::map<std::string, keyrecord, nocase> keys;

std::string keyname(int32_t root, const char *key)
{
    std::string_view path = key;
    while (path.starts_with('\\'))
        path.remove_prefix(1);
    while (path.ends_with('\\'))
        path.remove_suffix(1);
    std::string name = std::to_string(root);
    return path.empty() ? name : name + '\\' + std::string(path);
}

keyrecord *record(keyhandle handle)
{
    return reinterpret_cast<keyrecord *>(handle);
}

bool isbelow(const std::string &name, const std::string &parent)
{
    nocase before;
    std::string start = name.substr(0, parent.size() + 1), want = parent + '\\';
    return name.size() > want.size() && !before(start, want) && !before(want, start);
}

errorblock *copyout(const std::string &text, char *out, int32_t size)
{
    if (text.size() >= static_cast<size_t>(size)) return syserrcode(ERANGE, "RegEnumKeyEx");
    strcpy(out, text.c_str());
    return nullptr;
}

// The value with its zero, as the registry holds a text.
errorblock *valueout(const std::string &text, void *out, int32_t *size, const char *call)
{
    int32_t need = static_cast<int32_t>(text.size()) + 1;
    bool room = !out || *size >= need;
    *size = need;
    if (!room) return syserrcode(ERANGE, call);
    if (out) memcpy(out, text.c_str(), static_cast<size_t>(need));
    return nullptr;
}

} // namespace

errorblock *platformkeyopen(int32_t root, const char *key, platformkeyaccess, keyhandle *handle)
{
    *handle = 0;
    auto found = keys.find(keyname(root, key));
    if (!root || found == keys.end()) return syserrcode(ENOENT, "RegOpenKey", "%s", key);
    *handle = reinterpret_cast<keyhandle>(&found->second);
    return nullptr;
}

errorblock *platformkeycreate(int32_t root, const char *key, keyhandle *handle)
{
    *handle = 0;
    if (!root) return syserrcode(EBADF, "RegCreateKey", "%s", key);
    std::string name = keyname(root, key);
    for (size_t at = name.find('\\'); at != std::string::npos; at = name.find('\\', at + 1))
        keys[name.substr(0, at)];
    *handle = reinterpret_cast<keyhandle>(&keys[name]);
    return nullptr;
}

errorblock *platformkeyclose(keyhandle)
{
    return nullptr;
}

errorblock *platformkeydelete(int32_t root, const char *key)
{
    std::string name = keyname(root, key);
    if (!root || !keys.contains(name)) return syserrcode(ENOENT, "RegDeleteKey", "%s", key);
    for (const auto &row : keys)
        if (isbelow(row.first, name)) return syserrcode(ENOTEMPTY, "RegDeleteKey", "%s", key);
    keys.erase(name);
    return nullptr;
}

errorblock *platformvalueread(keyhandle handle, const char *name, void *out, int32_t *size)
{
    auto found = record(handle)->values.find(name);
    if (found == record(handle)->values.end())
        return syserrcode(ENOENT, "RegQueryValueEx", "%s", name);
    return valueout(found->second, out, size, "RegQueryValueEx");
}

errorblock *platformvaluewrite(keyhandle handle, const char *name, const char *text)
{
    record(handle)->values[name] = text;
    return nullptr;
}

errorblock *platformvaluedelete(keyhandle handle, const char *name)
{
    if (!record(handle)->values.erase(name))
        return syserrcode(ENOENT, "RegDeleteValue", "%s", name);
    return nullptr;
}

errorblock *platformkeyenum(keyhandle handle, int32_t index, char *name, int32_t size)
{
    std::string parent;
    for (const auto &row : keys)
        if (&row.second == record(handle)) parent = row.first;
    for (const auto &row : keys) {
        if (!isbelow(row.first, parent)) continue;
        std::string leaf = row.first.substr(parent.size() + 1);
        if (leaf.find('\\') == std::string::npos && !index--) return copyout(leaf, name, size);
    }
    return syserrcode(ENOENT, "RegEnumKeyEx");
}

errorblock *platformvalueenum(keyhandle handle, int32_t index, char *name, int32_t size,
                              uint32_t *type, void *data, int32_t *datasize)
{
    const auto &values = record(handle)->values;
    if (index < 0 || static_cast<size_t>(index) >= values.size())
        return syserrcode(ENOENT, "RegEnumValue");
    auto row = std::next(values.begin(), index);
    *type = VALUETEXT;
    errorblock *err = copyout(row->first, name, size);
    if (!err && datasize) err = valueout(row->second, data, datasize, "RegEnumValue");
    return err;
}
