#include <gtest/gtest.h>

#include "core/DriveList.h"

namespace zv {
namespace {

TEST(DriveList, CountsRootsPerDriveWithoutRegardToCase) {
    CDriveList drives;
    drives.AddDrive(u"C:");
    drives.AddDrive(u"c:");
    drives.AddDrive(u"\\\\server");
    ASSERT_EQ(drives.GetEntries().size(), 2u);
    EXPECT_EQ(drives.GetEntries()[0].m_strDrive, u"C:");
    EXPECT_EQ(drives.GetEntries()[0].m_uRefCount, 2u);
    EXPECT_EQ(drives.GetEntries()[0].m_uValue, 0u);

    drives.RemoveDrive(u"C:");
    ASSERT_EQ(drives.GetEntries().size(), 2u);
    EXPECT_EQ(drives.GetEntries()[0].m_uRefCount, 1u);
    drives.RemoveDrive(u"c:");
    ASSERT_EQ(drives.GetEntries().size(), 1u);
    EXPECT_EQ(drives.GetEntries()[0].m_strDrive, u"\\\\server");

    drives.RemoveDrive(u"D:");  // not listed: nothing happens
    EXPECT_EQ(drives.GetEntries().size(), 1u);
}

}  // namespace
}  // namespace zv
