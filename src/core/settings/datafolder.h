#pragma once

#include <QString>

// Where the data folders that come with the program ("palette/", "degrade/") are
// looked for: in the working directory when it holds one of that name, as the
// settings file is, else beside the executable, where the build and the install put
// them.
class DataFolder
{
public:
    // Looks only at whether working holds a folder named name; the result ends in "/".
    // A stored folder (an absolute path, or a name ending in "/") is resolved alike.
    static QString resolve(const QString& name, const QString& working, const QString& application);
    // The same with this process's working directory and application folder.
    static QString locate(const QString& name);
};
