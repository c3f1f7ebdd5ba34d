#include "CurlHandles.h"

#include <mutex>

namespace Curl {

bool HeaderList::append(const char *line)
{
    curl_slist *grown = curl_slist_append(m_list.get(), line);
    if (!grown)
        return false;
    m_list.release();
    m_list.reset(grown);
    return true;
}

bool ensureGlobalInit()
{
    static std::once_flag once;
    static CURLcode result = CURLE_FAILED_INIT;
    std::call_once(once, [] { result = curl_global_init(CURL_GLOBAL_ALL); });
    return result == CURLE_OK;
}

}  // namespace Curl
