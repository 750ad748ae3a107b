#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/StatusTable.h>

#include <gtest/gtest.h>

namespace
{

TEST(TemplateLibrary, FindsTheExpertDataBesideItselfWhereverTheProcessStands)
{
    util::TechnologyExpertData data;
    EXPECT_EQ(util::getTechnologyExpertData(&data), exchange::status::ok);
    EXPECT_FALSE(data.machineTapers.empty());
}

} // namespace
