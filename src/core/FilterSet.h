// The filter set of the main document: what a scan keeps.
#pragma once

namespace zv {

struct CFilterSet {};

}  // namespace zv
