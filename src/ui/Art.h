// The program's own images, drawn in code: the tree's folder icons and the
// toolbar buttons the toolkit's stock art has no match for.
#pragma once

#include <wx/bitmap.h>
#include <wx/imaglist.h>

#include <cstdint>

namespace zv {

// Two images (closed, open) for each of the five folder states, then the
// file image: eleven 16 by 16 images.
enum EFolderState { FolderSystem, FolderEncrypted, FolderCompressed, FolderProtected, FolderPlain };
wxImageList* CreateFolderImages();
// The image index of a directory, open when expanded or selected; the first
// match of system, encrypted, compressed, protected wins.
int FolderImageIndex(uint32_t uAttributes, uint16_t uDirFlags, bool bOpen);
inline constexpr int kFileImage = 10;
// Adds the header's sort arrows, ascending then descending, and returns the
// index of the first. A column without an arrow has no image.
int AddSortArrowImages(wxImageList& images);

// A 16 by 16 button image with a short label, for commands without stock
// art.
wxBitmap LabelButton(const wxString& strLabel, const wxColour& colour);
wxBitmap StopButton();

}  // namespace zv
