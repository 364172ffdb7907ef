// Walks over a directory and everything below it without recursion, so that
// a tree deeper than the call stack allows is handled like any other.
#pragma once

#include <utility>
#include <vector>

namespace zv {

// Calls fn on top, then on each directory below it, a parent before its
// children and children in the order of m_aChildren. fn may change the
// children of the directory it is given; the changed list is walked.
template <typename TDirectory, typename TFunction>
void ForEachInSubtree(TDirectory& top, TFunction&& fn) {
    std::vector<TDirectory*> aPending{&top};
    while (!aPending.empty()) {
        TDirectory* pDir = aPending.back();
        aPending.pop_back();
        fn(*pDir);
        for (size_t i = pDir->m_aChildren.GetSize(); i-- > 0;)
            aPending.push_back(pDir->m_aChildren[i]);
    }
}

// The same with every directory's children before the directory itself.
template <typename TDirectory, typename TFunction>
void ForEachInSubtreeChildrenFirst(TDirectory& top, TFunction&& fn) {
    std::vector<std::pair<TDirectory*, bool>> aPending{{&top, false}};
    while (!aPending.empty()) {
        auto& [pDir, bChildrenDone] = aPending.back();
        if (bChildrenDone) {
            TDirectory* pDone = pDir;
            aPending.pop_back();
            fn(*pDone);
            continue;
        }
        bChildrenDone = true;
        TDirectory* pParent = pDir;  // the reference dies with the first push
        for (size_t i = pParent->m_aChildren.GetSize(); i-- > 0;)
            aPending.emplace_back(pParent->m_aChildren[i], false);
    }
}

}  // namespace zv
