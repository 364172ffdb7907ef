// The largest files and largest directories lists, kept while the scan runs
// so that they cost no pass of their own. The document holds the lists;
// the records stay owned by the tree.
#pragma once

namespace zv {

class CWZorvaneDoc;
class CFileData;
class CDirectoryData;

// Offers a file that has entered the tree; true when the list took it.
// False at once when the list is switched off.
bool OfferLargestFile(CWZorvaneDoc& doc, CFileData& file);
// Offers a directory by its own size (its files, not its subdirectories).
void OfferLargestDirectory(CWZorvaneDoc& doc, CDirectoryData& directory);

// Puts both lists largest first. A list with a limit is kept so already;
// one without is filled unordered. Equal sizes keep the order of the scan.
void SortLargestLists(CWZorvaneDoc& doc);

// Takes a file that leaves the model out of the list. Nothing moves up in
// its place: the list shrinks until the next scan.
void RemoveLargestFile(CWZorvaneDoc& doc, const CFileData& file);

}  // namespace zv
