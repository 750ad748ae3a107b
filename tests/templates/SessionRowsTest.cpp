#include "tests/templates/SessionFixture.h"

using namespace testing_support;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

typedef TemplateSessionFixture SessionRowsTest;

TEST_F(SessionRowsTest, FaultyFilesAreNamedOnceAndHideNothing)
{
    const auto spoil = [this](const std::string& file) { writeBytes(kindPath(file), "no archive"); };
    const auto named = [this](const std::string& file) { return "\n Template: " + kindPath(file); };
    store({"good"});
    spoil("b.vtmpl");
    spoil("a.vtmpl");
    EXPECT_THAT(names(), ElementsAre("good"));
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + formatError + named("a.vtmpl") + named("b.vtmpl")));
    spoil("c.vtmpl");
    std::filesystem::remove(kindPath("a.vtmpl"));
    EXPECT_THAT(names(), ElementsAre("good"));
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + formatError + named("c.vtmpl")));
    spoil("a.vtmpl");
    session.fill();
    session.fill();
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + formatError + named("a.vtmpl")));

    for (int i = 0; i < 100; ++i)
        spoil("x" + std::to_string(100 + i) + ".vtmpl");
    session.fill();
    ASSERT_EQ(user.said.size(), 1U);
    EXPECT_THAT(user.said[0], testing::HasSubstr(named("x100.vtmpl") + named("x101.vtmpl")));
    EXPECT_THAT(user.said[0], testing::EndsWith(named("x199.vtmpl")));
    EXPECT_THAT(names(), ElementsAre("good"));
    user.takeMessages();

    blockFolder();
    session.fill();
    session.fill();
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: Error reading Template file."));
}

TEST_F(SessionRowsTest, ObserversHearOfEveryChangeOfTheRows)
{
    class Noted : public TemplateSessionObserver
    {
    public:
        explicit Noted(const TemplateSession& observed) : m_session(observed) {}
        void rowsReplaced(const std::vector<std::size_t>& former) override
        {
            std::string numbers;
            for (const std::size_t number : former)
                numbers += number == newRow ? "new " : std::to_string(number) + " ";
            note("replaced " + numbers + "of");
        }
        void rowsReordered(const std::vector<std::size_t>& order) override
        {
            note("reordered " + std::to_string(order.front()));
        }
        void rowsEdited() override { note("edited"); }
        std::string takeNotes() { return std::exchange(m_heard, {}); }

    private:
        // With what the session tells at that time: changes are told when they are there.
        void note(const std::string& what)
        {
            m_heard +=
                what + " " + std::to_string(m_session.rows().size()) + (m_session.rows().hasEdits() ? "* " : " ");
        }
        const TemplateSession& m_session;
        std::string m_heard;
    } observer(session);
    session.addObserver(observer);

    store({"a", "b"});
    EXPECT_EQ(observer.takeNotes(), "replaced new new of 2 ");
    session.sort({{keys::templateName, true}});
    EXPECT_EQ(observer.takeNotes(), "reordered 1 2 ");
    edit(0, keys::templateName, "b");
    EXPECT_EQ(observer.takeNotes(), "") << "nothing has changed";
    edit(0, keys::toolDiameter, "7");
    EXPECT_EQ(observer.takeNotes(), "edited 2* ");
    session.refresh();
    EXPECT_EQ(observer.takeNotes(), "") << "edits are not dropped";
    user.nextAnswer = true;
    EXPECT_TRUE(session.settleEdits());
    EXPECT_EQ(observer.takeNotes(), "edited 2 ");
    store({"c"});
    EXPECT_EQ(observer.takeNotes(), "replaced new 0 1 of 3 ") << "in the order of the last sort";
    session.deleteTemplates({0});
    EXPECT_EQ(observer.takeNotes(), "replaced 1 2 of 2 ");
}

} // namespace
