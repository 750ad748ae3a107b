#include "templates/TemplateSession.h"

#include "templates/TemplateMatch.h"
#include "templates/columns/ColumnKinds.h"
#include "tests/support/TemporaryFolder.h"
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace keys = util::keys;
namespace status = exchange::status;
using namespace TessaronResources;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

const std::string writeError = "Error writing Template file.";
const std::string formatError = "Template file format error.";

/// Notes what the user is told, and answers as set before.
class ScriptedPrompts : public TemplatePrompts
{
public:
    void showError(const std::string& text) override { said.push_back("error: " + text); }
    void showMessage(const std::string& text) override { said.push_back("message: " + text); }
    bool askOkCancel(const std::string& text) override { return answer("question: " + text); }
    bool askOkCancelError(const std::string& text) override { return answer("error question: " + text); }
    std::vector<std::string> chooseImportFiles(const std::string& folder) override
    {
        dialogFolder = folder;
        return importFiles;
    }
    std::string chooseExportFile(const std::string& folder) override
    {
        dialogFolder = folder;
        return exportFile;
    }
    std::string lastFolder() override { return folderSetting; }
    void keepLastFolder(const std::string& folder) override { folderSetting = folder; }

    std::vector<std::string> takeMessages() { return std::exchange(said, {}); }

    bool nextAnswer = false;
    std::vector<std::string> importFiles;
    std::string exportFile;
    std::string folderSetting;
    std::string dialogFolder;
    std::vector<std::string> said;

private:
    bool answer(const std::string& question)
    {
        said.push_back(question);
        return nextAnswer;
    }
};

class TemplateSessionTest : public testing::Test
{
protected:
    TemplateSessionTest() : session(operationKind::milling, 3, home.path(), makeSet("", 10.0), user)
    {
        EXPECT_EQ(session.open(true), DefinitionsState::created);
        session.fill();
        columns = makeGridColumns(session.info().columns, true);
    }
    ~TemplateSessionTest() override { keepSaveName(""); }

    static util::Parameterized makeSet(const std::string& name, double diameter)
    {
        util::Parameterized set;
        if (!name.empty())
            set.set(keys::templateName, name);
        set.set(keys::toolDiameter, diameter);
        set.set(keys::toolLengthOfCut, 20.0);
        set.set(keys::toolStickOutLength, 30.0);
        set.set(keys::feedrate, 400.0);
        return set;
    }
    std::string kindPath(const std::string& file) const { return util::templatePath(session.kindFolder(), file); }
    /// Puts templates into the store and the rows.
    void store(const std::vector<std::string>& names)
    {
        double diameter = 1.0;
        for (const std::string& name : names)
        {
            util::Parameterized set = makeSet(name, diameter++);
            ASSERT_EQ(util::saveTemplateFile(kindPath(name), false, &set), status::ok);
        }
        session.fill();
    }
    void edit(std::size_t row, const util::Key& key, const std::string& text)
    {
        for (const GridColumnPtr& column : columns)
            if (column->definition().key == std::string(key))
                session.editCell(row, *column, text);
    }
    std::vector<std::string> names()
    {
        session.fill();
        return session.existingNames();
    }
    std::vector<std::string> storedFolders() const
    {
        std::vector<std::string> folders;
        EXPECT_EQ(util::loadTemplateFolders(home.path(), &folders), status::ok);
        return folders;
    }
    /// Makes every write into the kind's folder fail: a file stands where the folder would.
    void blockFolder()
    {
        std::filesystem::remove_all(session.kindFolder());
        writeBytes(session.kindFolder(), "");
    }

    TemporaryFolder home;
    ScriptedPrompts user;
    TemplateSession session;
    std::vector<GridColumnPtr> columns;
};

TEST_F(TemplateSessionTest, FaultyFilesAreNamedOnceAndHideNothing)
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
    EXPECT_THAT(user.said[0], testing::HasSubstr(named("x110.vtmpl") + "\n and 89 more"));
    EXPECT_THAT(names(), ElementsAre("good"));
    user.takeMessages();

    blockFolder();
    session.fill();
    session.fill();
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: Error reading Template file."));
}

TEST_F(TemplateSessionTest, ALibraryThatMayOnlyBeReadOpensAndClosesInPeace)
{
    // Nobody, not even the superuser, may make a file there.
    TemplateSession reader(operationKind::milling, 0, "/proc", {}, user);
    EXPECT_EQ(reader.open(true), DefinitionsState::created);
    EXPECT_FALSE(reader.info().columns.empty());
    EXPECT_FALSE(reader.storeDefinitions(false));
    EXPECT_THAT(user.said, IsEmpty());
    EXPECT_FALSE(reader.storeDefinitions(true)) << "what the user changed is lost, and that is told";
    EXPECT_EQ(user.takeMessages().size(), 1U);
}

TEST_F(TemplateSessionTest, FirstStartMakesTheDefinitionsOnce)
{
    EXPECT_EQ(session.info().columns.size(), 26U);
    EXPECT_FALSE(session.info().columns[1].options.empty());
    EXPECT_EQ(session.info().windowWidth, 1024);
    EXPECT_EQ(session.info().windowHeight, 640);

    session.info().columns.resize(2);
    session.info().headingHeight = 33;
    EXPECT_TRUE(session.storeDefinitions(false));
    TemplateSession again(operationKind::milling, 0, home.path(), {}, user);
    EXPECT_EQ(again.open(true), DefinitionsState::loaded);
    EXPECT_EQ(again.info(), session.info());

    TemplateSession turning(operationKind::turning, 0, home.path(), {}, user);
    EXPECT_EQ(turning.open(true), DefinitionsState::created);
    EXPECT_EQ(turning.info().columns.size(), 9U);
    TemplateSession unknown(9, 0, home / "unknown", {}, user);
    EXPECT_EQ(unknown.open(true), DefinitionsState::created);
    EXPECT_THAT(unknown.info().columns, IsEmpty());
    EXPECT_THAT(user.said, IsEmpty());
}

TEST_F(TemplateSessionTest, DamagedDefinitionsAreReportedAndNotOverwrittenUnasked)
{
    const std::string path = home / (templateDefinitionsName(operationKind::milling) + ".xml");
    writeBytes(path, "damaged");
    TemplateSession again(operationKind::milling, 0, home.path(), {}, user);
    EXPECT_EQ(again.open(true), DefinitionsState::failed);
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + formatError));
    EXPECT_FALSE(again.storeDefinitions(false));
    EXPECT_FALSE(again.storeDefinitions(true)) << "there are no columns to store";
    EXPECT_EQ(readBytes(path), "damaged");
    again.info().columns = session.info().columns;
    EXPECT_TRUE(again.storeDefinitions(true));
    EXPECT_NE(readBytes(path), "damaged");
}

TEST_F(TemplateSessionTest, DefinitionsThatCannotBeStoredAreReported)
{
    writeBytes(home / "file", "");
    TemplateSession blocked(operationKind::milling, 0, home / "file", {}, user);
    EXPECT_EQ(blocked.open(true), DefinitionsState::failed);
    user.takeMessages();
    session.info().columns.resize(1);
    std::filesystem::remove_all(home.path());
    writeBytes(home.path(), "");
    EXPECT_FALSE(session.storeDefinitions(true));
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + writeError));
}

TEST_F(TemplateSessionTest, PreferencesAndFolderSurviveARestart)
{
    store({"a", "b"});
    util::TemplatePreferences preferences;
    preferences.matchFilter = matchFilter::sameToolDiameter;
    preferences.font = "Sans 14";
    EXPECT_TRUE(session.changesRows(preferences, session.folder()));
    EXPECT_TRUE(session.acceptPreferences(preferences, session.folder())) << "the filter has changed";
    EXPECT_FALSE(session.changesRows(preferences, " ")) << "this folder is the host's";
    EXPECT_TRUE(session.changesRows(preferences, home / "other place"));
    EXPECT_FALSE(session.acceptPreferences(preferences, "  " + session.folder() + "\t"));
    const std::string other = home / "other place";
    std::filesystem::create_directory(other);
    EXPECT_TRUE(session.acceptPreferences(preferences, other));
    EXPECT_THAT(names(), IsEmpty());

    TemplateSession again(operationKind::milling, 0, home.path(), makeSet("", 2.0), user);
    EXPECT_EQ(again.open(true), DefinitionsState::loaded);
    EXPECT_EQ(again.folder(), other);
    EXPECT_EQ(again.info().preferences, preferences);
    EXPECT_THAT(storedFolders(), ElementsAre(other, home.path()));
    EXPECT_TRUE(again.acceptPreferences(preferences, "")) << "an empty folder is the host's";
    again.fill();
    ASSERT_EQ(again.rows().size(), 1U) << "of the current diameter";
    EXPECT_EQ(again.rows().at(0).stringOr(keys::templateName, ""), "b");
    EXPECT_THAT(again.existingNames(), ElementsAre("a", "b"));
    EXPECT_THAT(storedFolders(), ElementsAre(home.path(), other));

    // A folder that is gone does not leave the user with nothing.
    session.acceptPreferences(preferences, other);
    std::filesystem::remove_all(other);
    TemplateSession third(operationKind::milling, 0, home.path(), {}, user);
    third.open(true);
    EXPECT_EQ(third.folder(), home.path());
    EXPECT_THAT(user.said, IsEmpty());
}

TEST_F(TemplateSessionTest, FolderListThatCannotBeReadIsReported)
{
    writeBytes(home / "template_folders.xml", "damaged");
    session.reloadKnownFolders();
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + formatError));
}

TEST_F(TemplateSessionTest, ProposesTheFirstFreeName)
{
    EXPECT_EQ(session.proposeName(), "TESSARON1");
    store({"TESSARON1", "tessaron2"});
    EXPECT_EQ(session.proposeName(), "TESSARON3");
    EXPECT_THAT(user.said, IsEmpty());
    blockFolder();
    EXPECT_EQ(session.proposeName(), "TEMPL");
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: Error reading Template file."));
}

TEST_F(TemplateSessionTest, ImportTakesWhatItCanAndNamesWhatItCannot)
{
    store({"a", "b", "c"});
    const TemporaryFolder outside;
    std::filesystem::copy(kindPath("a.vtmpl"), outside / "one.vtmpl");
    std::filesystem::copy(kindPath("b.vtmpl"), outside / "upper.VTMPL");
    user.exportFile = outside / "several.vtmpl";
    ASSERT_TRUE(session.exportTemplates({0, 2}));
    std::filesystem::copy(outside / "several.vtmpl", outside / "several.xml");
    writeBytes(outside / "bad.vtmpl", "bad");
    writeBytes(outside / "bad.xml", "");
    std::filesystem::create_directory(outside / "folder.vtmpl");
    util::Parameterized nameless = session.rows().at(1);
    nameless.erase(keys::templateName);
    ASSERT_EQ(util::saveTemplateArrayFile(outside / "nameless.xml", {nameless}), status::ok);
    const std::string a = readBytes(kindPath("a.vtmpl"));
    session.deleteTemplates({0, 1, 2});
    ASSERT_THAT(names(), IsEmpty());

    for (const char* const file : {"bad.vtmpl", "one.vtmpl", "folder.vtmpl", "bad.xml", "nameless.xml", "upper.VTMPL"})
        user.importFiles.push_back(outside / file);
    EXPECT_EQ(session.importTemplates(), 2U);
    EXPECT_THAT(user.takeMessages(),
                ElementsAre("error: " + formatError + "\n Template: " + (outside / "bad.vtmpl") +
                            "\n Template Array: " + (outside / "bad.xml") +
                            "\nError reading Template file.\n Template: " + (outside / "folder.vtmpl") +
                            "\nTemplate file name is missing.\n Template: "));
    EXPECT_THAT(names(), ElementsAre("a", "b"));
    EXPECT_EQ(user.folderSetting, outside.path());

    // An export comes back under either extension.
    for (const char* const file : {"several.vtmpl", "several.xml"})
    {
        session.deleteTemplates({0, 1});
        ASSERT_THAT(names().size(), testing::Le(1U));
        user.importFiles = {outside / file};
        EXPECT_EQ(session.importTemplates(), 2U);
        EXPECT_EQ(user.dialogFolder, outside.path());
        EXPECT_THAT(names(), testing::Contains("c"));
    }
    EXPECT_THAT(user.said, IsEmpty());
    user.importFiles.clear();
    EXPECT_EQ(session.importTemplates(), 0U);
    user.importFiles = {outside / "one.vtmpl"};
    blockFolder();
    EXPECT_EQ(session.importTemplates(), 0U);
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + writeError + "\n Template: a"));
}

TEST_F(TemplateSessionTest, ExportWritesRowsInTheirOrderOrSaysWhyNot)
{
    store({"a", "b", "c"});
    EXPECT_FALSE(session.exportTemplates({0})) << "cancelled";
    EXPECT_EQ(user.folderSetting, "");
    user.exportFile = home / "out.vtmpl";
    EXPECT_TRUE(session.exportTemplates({2, 0}));
    std::vector<util::Parameterized> read;
    ASSERT_EQ(util::loadTemplateArrayFile(user.exportFile, &read), status::ok);
    EXPECT_THAT(read, ElementsAre(session.rows().at(2), session.rows().at(0)));
    EXPECT_EQ(user.folderSetting, home.path());
    user.exportFile = home / "no/such/out.vtmpl";
    EXPECT_FALSE(session.exportTemplates({0}));
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: " + writeError + "\n Template: " + user.exportFile));
}

TEST_F(TemplateSessionTest, DeleteGoesByWhatIsStoredAndNotByEdits)
{
    store({"a", "b", "c"});
    edit(0, keys::templateName, "c");
    EXPECT_EQ(session.deleteTemplates({0, 1}), 2U);
    EXPECT_EQ(session.deleteTemplates({0, 1}), 0U);
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: Error reading Template file.\n Template: a\n Template: b"));
    EXPECT_THAT(names(), ElementsAre("c"));
}

TEST_F(TemplateSessionTest, StoringEditsAsksBeforeItReplaces)
{
    store({"a", "b"});
    edit(0, keys::toolDiameter, "77");
    edit(1, keys::templateName, "new");
    const util::Parameterized before = session.rows().storedAt(0);

    user.nextAnswer = false;
    EXPECT_FALSE(session.storeEdits());
    EXPECT_THAT(user.takeMessages(), ElementsAre("error question: a already exists. Do you want to replace it?"));
    EXPECT_EQ(session.rows().editedRows(), std::vector<std::size_t>{0}) << "what was not replaced stays edited";

    user.nextAnswer = true;
    EXPECT_TRUE(session.storeEdits());
    EXPECT_EQ(user.takeMessages().size(), 1U);
    EXPECT_THAT(names(), ElementsAre("a", "b", "new"));
    EXPECT_EQ(session.rows().at(0).numberOr(keys::toolDiameter, 0), 77.0);
    EXPECT_EQ(session.rows().at(0).at(keys::templateGuid), before.at(keys::templateGuid));
    EXPECT_NE(session.rows().at(1).at(keys::templateGuid), session.rows().at(2).at(keys::templateGuid))
        << "a template under a new name is another one";
    EXPECT_TRUE(session.storeEdits()) << "nothing to do";
}

TEST_F(TemplateSessionTest, FailedStoreKeepsTheEdits)
{
    store({"a", "b"});
    edit(0, keys::templateName, "");
    edit(1, keys::toolDiameter, "5");
    user.nextAnswer = true;
    EXPECT_FALSE(session.storeEdits());
    EXPECT_THAT(user.takeMessages(), ElementsAre("error question: b already exists. Do you want to replace it?",
                                                 "error: Template file name is missing."));
    EXPECT_EQ(session.rows().editedRows(), std::vector<std::size_t>{0});
    blockFolder();
    edit(0, keys::templateName, "x");
    EXPECT_FALSE(session.settleEdits());
    EXPECT_THAT(user.takeMessages(),
                ElementsAre(testing::StartsWith("question: "), "error: " + writeError + "\n Template: x"));
    EXPECT_TRUE(session.rows().hasEdits());
    user.nextAnswer = false;
    EXPECT_TRUE(session.settleEdits()) << "given up";
    edit(0, keys::templateName, "a");
    user.takeMessages();
    EXPECT_TRUE(session.settleEdits());
    EXPECT_THAT(user.said, IsEmpty());
}

TEST_F(TemplateSessionTest, ObserversHearOfEveryChangeOfTheRows)
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
    session.refresh();
    EXPECT_EQ(observer.takeNotes(), "replaced 1 2 of 2 ");
}

TEST_F(TemplateSessionTest, AppliedTemplateLeavesTheToolAlone)
{
    store({"a"});
    util::Parameterized result = makeSet("old", 5.0);
    result.set("Old Key", 1);
    session.applyTemplate(0, result);
    util::Parameterized expected = session.rows().at(0);
    for (const util::Key& key : {keys::toolDiameter, keys::toolLengthOfCut, keys::toolStickOutLength})
    {
        EXPECT_FALSE(result.has(key));
        expected.erase(key);
    }
    EXPECT_EQ(result, expected);
    EXPECT_TRUE(session.rows().at(0).has(keys::toolDiameter));
}

TEST_F(TemplateSessionTest, SavingTheOperationReplacesWithoutAQuestionAndKeepsIdentitiesApart)
{
    store({"a"});
    util::Parameterized applied;
    session.applyTemplate(0, applied);
    // The operation now carries the template's guid; what it is saved as is another template.
    TemplateSession next(operationKind::milling, 0, home.path(), applied, user);
    util::Parameterized saved;
    EXPECT_TRUE(next.saveCurrent("b/2", &saved));
    EXPECT_THAT(user.takeMessages(), ElementsAre("message: The template saved with name: b/2"));
    EXPECT_NE(saved.at(keys::templateGuid), applied.at(keys::templateGuid));
    EXPECT_TRUE(next.saveCurrent("a", &saved));
    EXPECT_EQ(saved.at(keys::templateGuid), applied.at(keys::templateGuid));
    EXPECT_THAT(names(), ElementsAre("a", "b/2"));
    user.takeMessages();
    EXPECT_FALSE(next.saveCurrent("", &saved));
    blockFolder();
    EXPECT_FALSE(next.saveCurrent("c", nullptr));
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: Template file name is missing.", "error: " + writeError));
}

TEST_F(TemplateSessionTest, SaveAsRunsUntilANameIsAcceptedOrGivenUp)
{
    session.info().preferences.loadSavedTemplates = true;
    std::vector<std::string> proposals;
    std::vector<std::string> typed;
    const auto dialog = [&](TemplateSession::SaveAsAnswer& answer)
    {
        proposals.push_back(answer.name + (answer.loadSaved ? "+" : "-"));
        if (typed.empty())
            return false;
        answer = {typed.front(), false};
        typed.erase(typed.begin());
        return true;
    };
    bool loadSaved = false;
    EXPECT_FALSE(session.saveCurrentAs(dialog, nullptr, &loadSaved));
    EXPECT_TRUE(loadSaved) << "the preset";
    EXPECT_THAT(proposals, ElementsAre("+")) << "nothing to propose yet";

    store({"first", "second"});
    typed = {"", "second", "second", "third"};
    proposals.clear();
    util::Parameterized result;
    EXPECT_TRUE(session.saveCurrentAs(dialog, &result, &loadSaved));
    EXPECT_FALSE(loadSaved);
    EXPECT_EQ(result.stringOr(keys::templateName, ""), "third");
    EXPECT_THAT(proposals, ElementsAre("first+", "-", "second-", "second-"));
    EXPECT_THAT(user.takeMessages(), ElementsAre("error: Template file name is missing.",
                                                 "question: second already exists. Do you want to replace it?",
                                                 "question: second already exists. Do you want to replace it?"));
    EXPECT_THAT(names(), ElementsAre("first", "second", "third"));

    user.nextAnswer = true;
    typed = {"second"};
    proposals.clear();
    EXPECT_TRUE(session.saveCurrentAs(dialog, &result, nullptr));
    EXPECT_THAT(proposals, ElementsAre("third+")) << "the last name of the process";
    EXPECT_EQ(result.numberOr(keys::toolDiameter, 0), 10.0);
    EXPECT_THAT(names(), ElementsAre("first", "second", "third"));
}

} // namespace
