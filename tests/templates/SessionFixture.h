#ifndef TESTS_TEMPLATES_SESSIONFIXTURE_H
#define TESTS_TEMPLATES_SESSIONFIXTURE_H

#include "templates/TemplateSession.h"

#include "templates/TemplateMatch.h"
#include "templates/columns/ColumnKinds.h"
#include "tests/support/TemporaryFolder.h"
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace testing_support
{

namespace keys = util::keys;
namespace status = exchange::status;
using namespace TessaronResources;

typedef TemplateSession::StoreReason StoreReason;

inline const std::string writeError = "Error writing Template file.";
inline const std::string formatError = "Template file format error.";

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
    std::unique_ptr<TemplateProgress> showImport(std::size_t files) override
    {
        class Progress : public TemplateProgress
        {
        public:
            Progress(ScriptedPrompts& user, std::size_t files) : m_user(user), m_files(files) {}
            bool goesOn(std::size_t done) override
            {
                EXPECT_LT(done, m_files);
                m_user.filesSeenDone = done;
                return done < m_user.cancelAfter;
            }

        private:
            ScriptedPrompts& m_user;
            std::size_t m_files;
        };
        return std::make_unique<Progress>(*this, files);
    }
    std::string lastFolder() override { return folderSetting; }
    void keepLastFolder(const std::string& folder) override { folderSetting = folder; }

    std::vector<std::string> takeMessages() { return std::exchange(said, {}); }

    bool nextAnswer = false;
    std::vector<std::string> importFiles;
    std::string exportFile;
    std::size_t cancelAfter = 1000;
    std::size_t filesSeenDone = 0;
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

class TemplateSessionFixture : public testing::Test
{
protected:
    TemplateSessionFixture() : session(operationKind::milling, 3, home.path(), makeSet("", 10.0), user)
    {
        EXPECT_EQ(session.open(true), DefinitionsState::created);
        session.fill();
        columns = makeGridColumns(session.info().columns, true);
    }
    ~TemplateSessionFixture() override { keepSaveName(""); }

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

} // namespace testing_support

#endif
