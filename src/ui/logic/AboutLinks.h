// Where the about box's link buttons lead: the project's read-me and its
// documentation folder. They are looked for beside the program and in each
// folder above it, so that a build tree inside the source tree finds the
// source tree's copies and an installed program finds those installed with
// it.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace zv {

struct CAboutLinks {
    std::u16string m_strReadme;  // empty when there is none
    std::u16string m_strDocs;
};

// bExists tells whether a path names a file or directory. Both links come
// from the nearest folder that has the read-me.
CAboutLinks FindAboutLinks(std::u16string_view strProgramDir,
                           const std::function<bool(std::u16string_view)>& bExists);

}  // namespace zv
