#pragma once
// Owning wrappers of libcurl's C handles, and the once-per-process global set-up.

#include <curl/curl.h>
#include <memory>

namespace Curl {

struct EasyDeleter { void operator()(CURL *h) const { curl_easy_cleanup(h); } };
struct MimeDeleter { void operator()(curl_mime *m) const { curl_mime_free(m); } };
struct ListDeleter { void operator()(curl_slist *l) const { curl_slist_free_all(l); } };

using Easy = std::unique_ptr<CURL, EasyDeleter>;
using Mime = std::unique_ptr<curl_mime, MimeDeleter>;

// A header list that grows by append(); null while empty.
class HeaderList
{
public:
    bool append(const char *line);
    curl_slist *get() const { return m_list.get(); }

private:
    std::unique_ptr<curl_slist, ListDeleter> m_list;
};

// curl_global_init runs once per process, whatever thread asks first.
bool ensureGlobalInit();

}  // namespace Curl
