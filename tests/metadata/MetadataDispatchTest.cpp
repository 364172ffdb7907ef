#include <gtest/gtest.h>

#include <filesystem>

#include "MetadataTestSupport.h"
#include "core/document/Document.h"
#include "core/records/FileData.h"
#include "metadata/MetadataFields.h"
#include "metadata/VersionMetadata.h"
#include "platform/Text.h"
#include "support/TempDir.h"

namespace zv {
namespace {

class MetadataDispatch : public ::testing::Test {
protected:
    void SetUp() override { SetMainDocument(&m_doc); }
    void TearDown() override { SetMainDocument(nullptr); }

    // A record whose name is the whole path of a copy of the fixture.
    CFileData& Copy(const char* pszFixture, const char* pszName) {
        const std::string strBytes = test::FixtureBytes(pszFixture);
        const auto path = m_dir.WriteFile(pszName, strBytes);
        m_aFiles.push_back(std::make_unique<CFileData>(path.u16string(), double(strBytes.size()),
                                                       FILETIME{}, FILETIME{}, FILETIME{}, 0,
                                                       nullptr, false, nullptr));
        return *m_aFiles.back();
    }

    CWZorvaneDoc m_doc;
    test::CTempDir m_dir;
    std::vector<std::unique_ptr<CFileData>> m_aFiles;
};

TEST_F(MetadataDispatch, ByExtensionWithStatusBits) {
    const struct {
        const char* pszFixture;
        const char* pszName;
        bool bHas;
    } aCases[] = {
        {"id3v1.mp3", "a.MP2", true},  {"info.wav", "b.Wav", true},  {"audio.avi", "c.avi", true},
        {"id3v1.mp3", "d.wav", false}, {"info.wav", "e.txt", false}, {"id3v1.mp3", "f.mp4", false},
    };
    for (const auto& c : aCases) {
        CFileData& file = Copy(c.pszFixture, c.pszName);
        MetadataValueList aValues;
        EXPECT_EQ(ReadFileMetadata(file, aValues), c.bHas) << c.pszName;
        EXPECT_EQ(aValues.empty(), !c.bHas) << c.pszName;
        EXPECT_TRUE(file.m_uFlags & FILE_MEDIA_READ);
        EXPECT_EQ((file.m_uFlags & FILE_HAS_MEDIA) != 0, c.bHas);
    }
}

TEST_F(MetadataDispatch, AFailedReadIsNotRepeatedAndValuesAreNotCached) {
    CFileData& mp3 = Copy("id3v1.mp3", "song.mp3");
    EXPECT_TRUE(HasFileMetadata(mp3));
    std::filesystem::remove(std::filesystem::path(mp3.GetFullPath()));
    EXPECT_TRUE(HasFileMetadata(mp3));  // answered from the bits
    MetadataValueList aValues;
    EXPECT_FALSE(ReadFileMetadata(mp3, aValues));  // read again, and gone
    EXPECT_FALSE(ReadFileMetadata(mp3, aValues));
    EXPECT_FALSE(HasFileMetadata(mp3));
}

TEST_F(MetadataDispatch, VersionNameList) {
    m_doc.m_filters.AddEntry(FilterVersionFiles, u"*.exe");
    CFileData& text = Copy("version.exe", "version.txt");
    MetadataValueList aValues;
    EXPECT_FALSE(ReadVersionMetadata(text, aValues));
    EXPECT_EQ(text.m_uFlags & (FILE_VERSION_READ | FILE_HAS_VERSION), 0u);
    // The Properties command reads it all the same.
    m_doc.m_options.m_bAllVersionFiles = 1;
    EXPECT_TRUE(ReadVersionMetadata(text, aValues));
    EXPECT_EQ(aValues.size(), 13u);
    m_doc.m_options.m_bAllVersionFiles = 0;
    CFileData& exe = Copy("version.exe", "version.EXE");
    EXPECT_TRUE(ReadVersionMetadata(exe, aValues));
    CFileData& none = Copy("info.wav", "none.exe");
    EXPECT_FALSE(ReadVersionMetadata(none, aValues));
    EXPECT_EQ(none.m_uFlags & (FILE_VERSION_READ | FILE_HAS_VERSION), FILE_VERSION_READ);
}

TEST_F(MetadataDispatch, AFileTheRecordKnowsTooSmallIsNotOpenedForItsVersion) {
    // The record's size decides, exactly at the bound; a link's record has
    // no size of what it leads to and is always read.
    const struct {
        double dRecordSize;
        uint32_t uAttributes;
        bool bHas;
    } aCases[] = {{kMinVersionFileSize - 1, 0, false},
                  {kMinVersionFileSize, 0, true},
                  {0, ATTR_REPARSE_POINT, true}};
    for (const auto& c : aCases) {
        CFileData& file = Copy("version.exe", "version.exe");
        file.m_dSize = c.dRecordSize;
        file.m_uAttributes = c.uAttributes;
        MetadataValueList aValues;
        EXPECT_EQ(ReadVersionMetadata(file, aValues), c.bHas) << c.dRecordSize;
        EXPECT_EQ(file.m_uFlags & (FILE_VERSION_READ | FILE_HAS_VERSION),
                  FILE_VERSION_READ | (c.bHas ? FILE_HAS_VERSION : 0u));
    }
}

TEST_F(MetadataDispatch, OfficeAndInstallerNames) {
    m_doc.m_filters.AddEntry(FilterOfficeExtensions, u"*.vsd");
    m_doc.m_filters.AddEntry(FilterOfficeExtensions, u"*.msi");
    EXPECT_TRUE(IsOfficeExtension(u"drawing.VSD"));
    EXPECT_FALSE(IsOfficeExtension(u"letter.doc"));
    for (const char16_t* pszName : {u"a.msi", u"b.MSM", u"c.msp", u"d.mst", u".msi"})
        EXPECT_TRUE(IsInstallerExtension(pszName));
    for (const char16_t* pszName : {u"msi", u"a.msix", u"a.ms"})
        EXPECT_FALSE(IsInstallerExtension(pszName));
}

}  // namespace
}  // namespace zv
