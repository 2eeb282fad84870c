#pragma once

#include <string>
#include <vector>

namespace pescavo {

// The user guide: the HTML pages of one folder, with index.html as the contents. The help
// window shows the pages; this class gives it the contents, the search and the link check.
class Guide {
 public:
  struct Entry {
    std::string title;
    std::string href;  // "page.html" or "page.html#section"
    int level = 0;     // 0 for a page, 1 for a section in it, and so on
  };
  struct Hit {
    std::string file;
    std::string title;
    std::string snippet;  // the words around the first match
    std::string mark;     // what to mark on the page: the whole query where it stands so
  };

  // The first of the folders that holds index.html, or empty.
  static std::string locate(const std::vector<std::string>& folders);

  // Reads every .html file of the folder; a missing folder gives an empty guide.
  explicit Guide(std::string folder);

  const std::string& folder() const { return m_folder; }
  bool empty() const { return m_pages.empty(); }
  // The links of index.html in their order, nested as its lists nest them.
  const std::vector<Entry>& contents() const { return m_contents; }
  // The pages whose text holds every word of the query (any case), in the contents' order.
  std::vector<Hit> search(const std::string& query) const;
  // Links that lead to no file of the folder or to no anchor of their page, as
  // "page.html: target".
  std::vector<std::string> brokenLinks() const;

 private:
  struct Page {
    std::string file;
    std::string title;
    std::string text;  // without tags, entities resolved, blanks folded
    std::vector<std::string> anchors;
    std::vector<std::string> links;
  };
  const Page* page(const std::string& file) const;

  std::string m_folder;
  std::vector<Page> m_pages;  // contents order, then the rest by name
  std::vector<Entry> m_contents;
};

}  // namespace pescavo
