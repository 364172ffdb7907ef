#include "ui/Art.h"

#include <wx/dcmemory.h>
#include <wx/image.h>

#include "core/records/DirectoryData.h"
#include "platform/FileSystem.h"

namespace zv {

namespace {

const wxColour kTransparent(255, 0, 255);

wxBitmap Finish(wxBitmap& bitmap) {
    bitmap.SetMask(new wxMask(bitmap, kTransparent));
    return bitmap;
}

wxBitmap Folder(const wxColour& colour, bool bOpen) {
    wxBitmap bitmap(16, 16, 24);
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(wxBrush(kTransparent));
        dc.Clear();
        dc.SetPen(wxPen(colour.ChangeLightness(50)));
        dc.SetBrush(wxBrush(colour.ChangeLightness(80)));
        dc.DrawRectangle(1, 2, 6, 3);  // the tab
        dc.DrawRectangle(1, 4, 14, 10);
        if (bOpen) {
            // The lid folded forward.
            dc.SetBrush(wxBrush(colour));
            const wxPoint aLid[] = {{3, 7}, {15, 7}, {13, 13}, {1, 13}};
            dc.DrawPolygon(4, aLid);
        } else {
            dc.SetBrush(wxBrush(colour));
            dc.DrawRectangle(1, 6, 14, 8);
        }
    }
    return Finish(bitmap);
}

wxBitmap Document() {
    wxBitmap bitmap(16, 16, 24);
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(wxBrush(kTransparent));
        dc.Clear();
        dc.SetPen(wxPen(wxColour(90, 90, 90)));
        dc.SetBrush(*wxWHITE_BRUSH);
        const wxPoint aPage[] = {{3, 1}, {10, 1}, {13, 4}, {13, 14}, {3, 14}};
        dc.DrawPolygon(5, aPage);
        dc.SetPen(wxPen(wxColour(150, 150, 200)));
        for (int y = 5; y <= 11; y += 2) dc.DrawLine(5, y, 11, y);
    }
    return Finish(bitmap);
}

// Set pixel by pixel: a drawn polygon would be smoothed into the mask
// colour and leave a coloured fringe.
wxBitmap SortArrow(bool bAscending) {
    wxImage image(16, 16);
    image.SetRGB(wxRect(0, 0, 16, 16), kTransparent.Red(), kTransparent.Green(),
                 kTransparent.Blue());
    for (int nRow = 0; nRow < 5; ++nRow) {
        const int y = bAscending ? 6 + nRow : 10 - nRow;
        for (int x = 8 - nRow; x <= 8 + nRow; ++x) image.SetRGB(x, y, 90, 90, 90);
    }
    image.SetMaskColour(kTransparent.Red(), kTransparent.Green(), kTransparent.Blue());
    return wxBitmap(image);
}

}  // namespace

int AddSortArrowImages(wxImageList& images) {
    const int nFirst = images.Add(SortArrow(true));
    images.Add(SortArrow(false));
    return nFirst;
}

wxImageList* CreateFolderImages() {
    const wxColour aColours[] = {
        wxColour(160, 160, 160),  // system
        wxColour(80, 180, 80),    // encrypted
        wxColour(80, 120, 220),   // compressed
        wxColour(220, 80, 60),    // protected
        wxColour(240, 200, 80),   // plain
    };
    auto* pImages = new wxImageList(16, 16, true, 11);
    for (const wxColour& colour : aColours) {
        pImages->Add(Folder(colour, false));
        pImages->Add(Folder(colour, true));
    }
    pImages->Add(Document());
    return pImages;
}

int FolderImageIndex(uint32_t uAttributes, uint16_t uDirFlags, bool bOpen) {
    EFolderState eState = FolderPlain;
    if (uAttributes & ATTR_SYSTEM)
        eState = FolderSystem;
    else if (uAttributes & ATTR_ENCRYPTED)
        eState = FolderEncrypted;
    else if (uAttributes & ATTR_COMPRESSED)
        eState = FolderCompressed;
    else if (uDirFlags & DIR_PROTECTED)
        eState = FolderProtected;
    return 2 * eState + (bOpen ? 1 : 0);
}

wxBitmap LabelButton(const wxString& strLabel, const wxColour& colour) {
    wxBitmap bitmap(16, 16, 24);
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(wxBrush(kTransparent));
        dc.Clear();
        dc.SetPen(wxPen(colour.ChangeLightness(60)));
        dc.SetBrush(wxBrush(colour));
        dc.DrawRoundedRectangle(0, 1, 16, 14, 3);
        dc.SetFont(wxFont(wxFontInfo(7).Bold()));
        dc.SetTextForeground(*wxWHITE);
        const wxSize size = dc.GetTextExtent(strLabel);
        dc.DrawText(strLabel, (16 - size.x) / 2, (16 - size.y) / 2);
    }
    return Finish(bitmap);
}

wxBitmap StopButton() {
    wxBitmap bitmap(16, 16, 24);
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(wxBrush(kTransparent));
        dc.Clear();
        dc.SetPen(wxPen(wxColour(120, 0, 0)));
        dc.SetBrush(wxBrush(wxColour(210, 30, 30)));
        const wxPoint aOctagon[] = {{5, 1},   {11, 1}, {15, 5}, {15, 11},
                                    {11, 15}, {5, 15}, {1, 11}, {1, 5}};
        dc.DrawPolygon(8, aOctagon);
        dc.SetPen(wxPen(*wxWHITE, 2));
        dc.DrawLine(5, 8, 11, 8);
    }
    return Finish(bitmap);
}

}  // namespace zv
