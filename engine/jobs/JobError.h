#ifndef ENGINE_JOBS_JOBERROR_H
#define ENGINE_JOBS_JOBERROR_H

#include <stdexcept>
#include <string>
#include <utility>

namespace exchange::jobs
{

/// Ends a job with a status code and a text for the user.
class JobError : public std::runtime_error
{
public:
    /// \param field the name of the parameter at fault, or empty
    JobError(int status, const std::string& text, std::string field = std::string())
        : std::runtime_error(text), m_status(status), m_field(std::move(field))
    {
    }

    int status() const { return m_status; }
    const std::string& field() const { return m_field; }

private:
    int m_status;
    std::string m_field;
};

} // namespace exchange::jobs

#endif
