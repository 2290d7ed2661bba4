#include "base/platform.h"

#include "base/syserr.h"

#include <windows.h>

namespace
{

HKEY rootkey(int32_t root)
{
    static const HKEY roots[] = {nullptr,           HKEY_CLASSES_ROOT,
                                 HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE,
                                 HKEY_USERS,        HKEY_CURRENT_CONFIG};
    return roots[root];
}

HKEY systemkey(keyhandle handle)
{
    return reinterpret_cast<HKEY>(handle);
}

uint32_t code(LSTATUS status)
{
    return static_cast<uint32_t>(status);
}

} // namespace

errorblock *platformkeyopen(int32_t root, const char *key, platformkeyaccess access,
                            keyhandle *handle)
{
    constexpr REGSAM rights[] = {KEY_READ, KEY_WRITE, KEY_ALL_ACCESS};
    HKEY opened = nullptr;
    LSTATUS status = RegOpenKeyExA(rootkey(root), key, 0, rights[access], &opened);
    *handle = reinterpret_cast<keyhandle>(opened);
    return syserrcode(code(status), "RegOpenKey", "%s", key);
}

errorblock *platformkeycreate(int32_t root, const char *key, keyhandle *handle)
{
    HKEY opened = nullptr;
    LSTATUS status = RegCreateKeyExA(rootkey(root), key, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                     &opened, nullptr);
    *handle = reinterpret_cast<keyhandle>(opened);
    return syserrcode(code(status), "RegCreateKey", "%s", key);
}

errorblock *platformkeyclose(keyhandle handle)
{
    return syserrcode(code(RegCloseKey(systemkey(handle))), "RegCloseKey");
}

errorblock *platformkeydelete(int32_t root, const char *key)
{
    return syserrcode(code(RegDeleteKeyA(rootkey(root), key)), "RegDeleteKey", "%s", key);
}

errorblock *platformvalueread(keyhandle handle, const char *name, void *out, int32_t *size)
{
    DWORD bytes = static_cast<DWORD>(*size), kind = REG_NONE;
    LSTATUS status = RegQueryValueExA(systemkey(handle), name, nullptr, &kind, nullptr, nullptr);
    if (!status && kind == REG_EXPAND_SZ)
        status = RegGetValueA(systemkey(handle), nullptr, name, RRF_RT_ANY, nullptr, out, &bytes);
    else
        status = RegQueryValueExA(systemkey(handle), name, nullptr, nullptr,
                                  static_cast<BYTE *>(out), &bytes);
    *size = static_cast<int32_t>(bytes);
    return syserrcode(code(status), "RegQueryValueEx", "%s", name);
}

errorblock *platformvaluewrite(keyhandle handle, const char *name, const char *text)
{
    LSTATUS status =
        RegSetValueExA(systemkey(handle), name, 0, REG_SZ, reinterpret_cast<const BYTE *>(text),
                       static_cast<DWORD>(lstrlenA(text) + 1));
    return syserrcode(code(status), "RegSetValueEx", "%s", name);
}

errorblock *platformvaluedelete(keyhandle handle, const char *name)
{
    LSTATUS status = RegDeleteValueA(systemkey(handle), name);
    return syserrcode(code(status), "RegDeleteValue", "%s", name);
}

errorblock *platformkeyenum(keyhandle handle, int32_t index, char *name, int32_t size)
{
    DWORD room = static_cast<DWORD>(size);
    LSTATUS status = RegEnumKeyExA(systemkey(handle), static_cast<DWORD>(index), name, &room,
                                   nullptr, nullptr, nullptr, nullptr);
    return syserrcode(code(status), "RegEnumKeyEx");
}

errorblock *platformvalueenum(keyhandle handle, int32_t index, char *name, int32_t size,
                              uint32_t *type, void *data, int32_t *datasize)
{
    DWORD room = static_cast<DWORD>(size), kind = 0;
    DWORD bytes = datasize ? static_cast<DWORD>(*datasize) : 0;
    LSTATUS status =
        RegEnumValueA(systemkey(handle), static_cast<DWORD>(index), name, &room, nullptr, &kind,
                      static_cast<BYTE *>(data), datasize ? &bytes : nullptr);
    *type = kind;
    if (datasize) *datasize = static_cast<int32_t>(bytes);
    return syserrcode(code(status), "RegEnumValue");
}
