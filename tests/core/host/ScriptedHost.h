// A host for tests that records messages and questions and answers each
// question from a script (the safe answer once the script runs out).
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "core/host/Host.h"

namespace zv::test {

class CScriptedHost : public CQuietHost {
public:
    CScriptedHost() { SetHost(this); }
    ~CScriptedHost() override { SetHost(nullptr); }
    CScriptedHost(const CScriptedHost&) = delete;
    CScriptedHost& operator=(const CScriptedHost&) = delete;

    bool AskYesNo(std::u16string_view strQuestion, bool bSafeAnswer) override {
        m_aQuestions.emplace_back(strQuestion);
        if (m_aAnswers.empty()) return bSafeAnswer;
        const bool bAnswer = m_aAnswers.front();
        m_aAnswers.pop_front();
        return bAnswer;
    }

    std::deque<bool> m_aAnswers;
    std::vector<std::u16string> m_aQuestions;
};

}  // namespace zv::test
