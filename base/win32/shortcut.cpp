#include "base/platform.h"

#include <windows.h>

#include <objbase.h>
#include <shlobj.h>

namespace
{

bool linkload(IShellLinkA *link, const char *path)
{
    wchar_t wide[PATHSIZE];
    IPersistFile *file = nullptr;
    if (!MultiByteToWideChar(CP_ACP, 0, path, -1, wide, PATHSIZE)) return false;
    if (FAILED(link->QueryInterface(IID_IPersistFile, reinterpret_cast<void **>(&file))))
        return false;
    bool loaded = SUCCEEDED(file->Load(wide, STGM_READ));
    file->Release();
    return loaded;
}

void linktarget(const char *path, char *out, int32_t size)
{
    IShellLinkA *link = nullptr;
    if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA,
                                reinterpret_cast<void **>(&link))))
        return;
    if (!linkload(link, path) || FAILED(link->GetPath(out, size, nullptr, 0))) out[0] = 0;
    link->Release();
}

} // namespace

void platformshortcut(const char *path, char *out, int32_t size)
{
    out[0] = 0;
    HRESULT started = CoInitialize(nullptr);
    linktarget(path, out, size);
    if (SUCCEEDED(started)) CoUninitialize();
}
