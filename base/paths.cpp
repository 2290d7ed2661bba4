#include "base/paths.h"

#include "base/errors.h"
#include "base/registry.h"
#include "base/text.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace
{

bool following = true, expanding = true;

// Writes into a buffer of known size and drops what doesn't fit.
struct pathwriter {
    char *at, *end; // end is the place of the last zero
    bool cut;       // something was dropped
};

void put(pathwriter *out, const char *text, size_t length)
{
    size_t room = static_cast<size_t>(out->end - out->at);
    if (length > room) out->cut = true;
    length = std::min(length, room);
    memcpy(out->at, text, length);
    out->at += length;
}

// A value of the registry. What is missing for all users of the machine may be there
// for this one: not everybody may write for all.
errorblock *registryvalue(const char *macro, char *value)
{
    int32_t size = PATHSIZE - 1;
    errorblock *err = regread(macro, value, &size);
    for (const char *machine : {"HKEY_LOCAL_MACHINE\\", "HKLM\\"}) {
        size_t length = strlen(machine);
        if (!err || strncmp(macro, machine, length)) continue;
        std::string own = std::string("HKEY_CURRENT_USER\\") + (macro + length);
        size = PATHSIZE - 1;
        return regread(own.c_str(), value, &size);
    }
    return err;
}

// The value of a macro's text; empty when there is none. Folders of the registry
// are often quoted.
void macrovalue(const char *macro, char *value)
{
    value[0] = 0;
    if (macro[0] == '%')
        platformenvironment(macro, value, PATHSIZE);
    else if (registryvalue(macro, value))
        value[0] = 0;
    else
        *std::remove(value, value + strlen(value), '"') = 0;
}

// The macro that the "<" at in opens: its value goes to out and the result is
// what follows its ">". A name may hold a ">" itself, so that a longer text is
// tried when a shorter one yields nothing. 0 when no ">" works.
const char *macroexpand(const char *in, pathwriter *out)
{
    char macro[PATHSIZE], value[PATHSIZE];
    for (const char *end = strchr(in, '>'); end; end = strchr(end + 1, '>')) {
        size_t length = static_cast<size_t>(end - in - 1);
        if (length >= sizeof macro) return nullptr;
        memcpy(macro, in + 1, length);
        macro[length] = 0;
        macrovalue(macro, value);
        if (value[0]) {
            put(out, value, strlen(value));
            return end + 1;
        }
    }
    return nullptr;
}

void shortcutfollow(char *path, int32_t size)
{
    char target[PATHSIZE];
    if (pathhasext(path, "lnk")) return;
    platformshortcut(path, target, sizeof target);
    if (target[0]) strcopyn(path, target, size);
}

errorblock *nofit(const char *operation)
{
    return makeerrorf(ERRORMAXSTRING, operation);
}

// Replaces the length bytes of path at "at" by text.
errorblock *splice(char *path, size_t at, size_t length, const char *text, const char *operation)
{
    size_t added = strlen(text), tail = strlen(path + at + length) + 1;
    if (at + added + tail > PATHSIZE) return nofit(operation);
    memmove(path + at + added, path + at + length, tail);
    std::copy_n(text, added, path + at);
    return nullptr;
}

size_t offset(const char *path, const char *place)
{
    return static_cast<size_t>(place - path);
}

// Whether all of it fits.
bool expand(const char *in, char *out, int32_t size)
{
    pathwriter writer = {out, out + size - 1, false};
    if (!expanding) put(&writer, in, strlen(in));
    while (expanding && *in) {
        const char *next = in + 1;
        const char *behind = *in == '<' && *next != '<' ? macroexpand(in, &writer) : nullptr;
        if (*in == '<' && *next == '<') next++;
        if (!behind && *in != '"') put(&writer, in, 1);
        in = behind ? behind : next;
    }
    *writer.at = 0;
    if (!writer.cut && following) shortcutfollow(out, size);
    return !writer.cut;
}

} // namespace

errorblock *pathexpand(const char *in, char *out, int32_t size)
{
    expand(in, out, size);
    return nullptr;
}

errorblock *pathwhole(const char *in, char (&out)[PATHSIZE])
{
    if (expand(in, out, PATHSIZE)) return nullptr;
    out[0] = 0;
    return pathtoolong(in);
}

errorblock *pathtoolong(const char *name)
{
    return makeerrortext(ERRORMAXSTRING, "The name of a file is longer than %d characters: %s",
                         PATHSIZE - 1, name);
}

errorblock *pathabsolute(const char *in, char *out, int32_t size)
{
    char path[PATHSIZE];
    out[0] = 0;
    errorblock *err = pathwhole(in, path);
    return err || platformfullpath(path, out, size) ? err : nofit("pathabsolute");
}

void pathmacros(bool on)
{
    expanding = on;
}

void pathfollow(bool on)
{
    following = on;
}

errorblock *fs_strcat(char *path, int32_t size, const char *leaf)
{
    size_t length = strlen(path);
    bool separate = !length || path[length - 1] != '\\';
    if (length + separate + strlen(leaf) >= static_cast<size_t>(size)) return nofit("fs_strcat");
    if (separate) path[length++] = '\\';
    strcpy(path + length, leaf);
    return nullptr;
}

errorblock *fs_strcpycat(char *out, int32_t size, const char *directory, const char *leaf)
{
    errorblock *err = xzstrncpyu(out, directory, size);
    if (!err) err = fs_strcat(out, size, leaf);
    return err;
}

const char *leafname(const char *path)
{
    for (char separator : {'\\', '/', ':'})
        if (const char *last = strrchr(path, separator)) return last + 1;
    return path;
}

void dirname(const char *path, char *out, int32_t size)
{
    const char *leaf = leafname(path);
    size_t length = leaf > path ? offset(path, leaf) - 1 : 0;
    length = std::min(length, static_cast<size_t>(size) - 1);
    memcpy(out, path, length);
    out[length] = 0;
}

const char *pathgetext(const char *path)
{
    const char *dot = strrchr(leafname(path), '.');
    return dot ? dot + 1 : nullptr;
}

int pathhasext(const char *path, const char *ext)
{
    const char *own = pathgetext(path);
    return !own || cstricmp(own, ext);
}

errorblock *pathsetext(char *path, const char *ext)
{
    return pathhasext(path, ext) ? pathforceext(path, ext) : nullptr;
}

errorblock *pathforceext(char *path, const char *ext)
{
    const char *own = pathgetext(path);
    if (own) return splice(path, offset(path, own), strlen(own), ext, "pathforceext");
    size_t length = strlen(path);
    if (length + strlen(ext) + 2 > PATHSIZE) return nofit("pathforceext");
    path[length] = '.';
    strcpy(path + length + 1, ext);
    return nullptr;
}

errorblock *pathinsert(char *path, const char *text)
{
    const char *own = pathgetext(path);
    size_t at = own ? offset(path, own) - 1 : strlen(path);
    return splice(path, at, 0, text, "pathinsert");
}
