// The two directories of a compare scanned at the same time: the left one
// on the calling thread into the main document, the right one on a thread
// of its own into a document of its own, whose root and records then join
// the main document behind the left one's, in the order a scan of both one
// after the other leaves them. It is done only where nothing after the walk
// spans both trees (see CanScanRootsAtOnce); the compare then finds the same
// records it would have found.
//
// It relies on the scanner keeping no state outside the document, filter
// and steps it is given, so that two scanners on two documents may walk at
// once, and on the console host taking status texts from several threads.
#pragma once

namespace zv {

class CWZorvaneDoc;

// Whether a walk of each root alone, without the steps after it that read
// or change the whole forest, leaves what a scan of both leaves: no filter
// is active (a filter may prune across roots and search duplicates), no
// Auto Print report or search runs after the scan, no checksum list is
// applied and no checksums are shown. The largest lists and tables are not
// gathered: a compare reports none of them.
bool CanScanRootsAtOnce(const CWZorvaneDoc& doc);

// doc holds exactly two roots. Scans both, the second on a thread of its
// own; falls back to one after the other when no thread can be started.
// A stop request (Ctrl-C) stops both walks and sets doc.m_bStopRequested.
void ScanRootsAtOnce(CWZorvaneDoc& doc);

}  // namespace zv
