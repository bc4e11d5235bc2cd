#pragma once

#include "platform/export.h"

#include <map>
#include <string>
#include <vector>

namespace zel::app {

/// A list of folders that are searched for a file by name, in the order in which they were added.
class ZEL_QT_EXPORT PathGroup
{
public:
    /// Appends a folder. A Qt resource folder begins with ":/". A folder that does not exist is
    /// kept: it may come into being later.
    void add(const std::wstring& directory);

    /// The full name of the first existing file `name` below the folders, or an empty text.
    /// `name` may hold folders of its own ("icons/beam.png"); an absolute name is answered as it
    /// stands if there is such a file. An empty name and the name of a folder find nothing.
    std::wstring find(const std::wstring& name) const;

private:
    std::vector<std::wstring> m_directories;
};

/// Where the application's files are. One instance for the process, on the GUI thread.
class ZEL_QT_EXPORT Environment
{
public:
    static Environment& instance();

    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

    /// The paths of a group, made empty at the first use of its name. The group with the empty
    /// name is the one that images are looked up in; it holds the library's own images from the
    /// start. The reference stays valid.
    PathGroup& getPaths(const std::string& group);

private:
    Environment();

    std::map<std::string, PathGroup> m_groups;
};

} // namespace zel::app
