#pragma once

#include "reports/pdf/PageOps.h"

#include <string>
#include <vector>

namespace pryvane::bench {

/// Draws the texts of the pages as a Qt program would: QPdfWriter and one drawText, wrapped, for
/// each.
void writeWithQt(const std::vector<pdf::Page>& pages, const std::string& path);

/// What QPdfWriter needs before its first document.
class QtSession {
public:
    QtSession(int& argc, char** argv);
    ~QtSession();
    QtSession(const QtSession&) = delete;
    QtSession& operator=(const QtSession&) = delete;

private:
    void* m_application;
};

} // namespace pryvane::bench
