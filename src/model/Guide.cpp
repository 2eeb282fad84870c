#include "model/Guide.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

namespace pescavo {

namespace fs = std::filesystem;

namespace {

std::string readAll(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

std::string lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

std::string resolveEntities(const std::string& text) {
  static const std::pair<const char*, const char*> kEntities[] = {
      {"&amp;", "&"}, {"&lt;", "<"},   {"&gt;", ">"},      {"&quot;", "\""},
      {"&#39;", "'"}, {"&nbsp;", " "}, {"&le;", "\u2264"}, {"&ge;", "\u2265"}};
  std::string out = text;
  for (const auto& [entity, character] : kEntities) {
    for (std::size_t at = out.find(entity); at != std::string::npos;
         at = out.find(entity, at + std::char_traits<char>::length(character)))
      out.replace(at, std::char_traits<char>::length(entity), character);
  }
  return out;
}

// The visible text: style blocks and tags dropped, blanks folded.
std::string visibleText(const std::string& html) {
  static const std::regex kTag("<[^>]*>");
  // Style blocks are cut by hand: a long one is too deep for the regex engine's recursion.
  const std::string low = lower(html);
  std::string text;
  std::size_t from = 0;
  for (std::size_t at = low.find("<style"); at != std::string::npos;
       at = low.find("<style", from)) {
    text.append(html, from, at - from);
    text += ' ';
    const std::size_t end = low.find("</style>", at);
    from = end == std::string::npos ? html.size() : end + 8;
  }
  if (from < html.size()) text.append(html, from, std::string::npos);
  text = resolveEntities(std::regex_replace(text, kTag, " "));
  std::string folded;
  for (char c : text) {
    const bool blank = std::isspace(static_cast<unsigned char>(c)) != 0;
    if (blank && (folded.empty() || folded.back() == ' ')) continue;
    folded += blank ? ' ' : c;
  }
  if (!folded.empty() && folded.back() == ' ') folded.pop_back();
  return folded;
}

std::vector<std::string> matches(const std::string& html, const std::regex& pattern) {
  std::vector<std::string> found;
  for (std::sregex_iterator it(html.begin(), html.end(), pattern), end; it != end; ++it)
    found.push_back((*it)[1].str());
  return found;
}

bool external(const std::string& href) {
  static const std::regex kScheme("^[a-zA-Z][a-zA-Z0-9+.-]*:");
  return std::regex_search(href, kScheme);
}

// index.html's links with the depth of the lists around each.
std::vector<Guide::Entry> contentsOf(const std::string& html) {
  static const std::regex kPiece(
      R"re(<(/?)(ul|ol)\b[^>]*>|<a\s[^>]*href="([^"]*)"[^>]*>([\s\S]*?)</a>)re", std::regex::icase);
  std::vector<Guide::Entry> entries;
  int depth = 0;
  for (std::sregex_iterator it(html.begin(), html.end(), kPiece), end; it != end; ++it) {
    const std::smatch& piece = *it;
    if (piece[2].matched) {
      depth += piece[1].length() == 0 ? 1 : -1;
      continue;
    }
    const std::string href = piece[3].str();
    if (external(href)) continue;
    entries.push_back({visibleText(piece[4].str()), href, std::max(0, depth - 1)});
  }
  return entries;
}

std::string fileOf(const std::string& href) { return href.substr(0, href.find('#')); }

}  // namespace

std::string Guide::locate(const std::vector<std::string>& folders) {
  for (const std::string& folder : folders) {
    std::error_code error;
    if (fs::is_regular_file(fs::path(folder) / "index.html", error)) return folder;
  }
  return {};
}

Guide::Guide(std::string folder) : m_folder(std::move(folder)) {
  static const std::regex kTitle(R"(<title>([\s\S]*?)</title>)", std::regex::icase);
  static const std::regex kAnchor(R"re(\s(?:id|name)="([^"]*)")re", std::regex::icase);
  static const std::regex kLink(R"re(\s(?:href|src)="([^"]*)")re", std::regex::icase);
  std::error_code error;
  std::vector<std::string> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(m_folder, error)) {
    if (entry.path().extension() == ".html") files.push_back(entry.path().filename().string());
  }
  std::sort(files.begin(), files.end());
  for (const std::string& file : files) {
    const std::string html = readAll(fs::path(m_folder) / file);
    std::smatch title;
    Page page{file, std::regex_search(html, title, kTitle) ? visibleText(title[1].str()) : file,
              visibleText(html), matches(html, kAnchor), matches(html, kLink)};
    if (file == "index.html") m_contents = contentsOf(html);
    m_pages.push_back(std::move(page));
  }
  // Pages in the order the contents first name them.
  std::vector<std::string> order = {"index.html"};
  for (const Entry& entry : m_contents) {
    const std::string file = fileOf(entry.href);
    if (std::find(order.begin(), order.end(), file) == order.end()) order.push_back(file);
  }
  const auto rank = [&](const Page& p) {
    return std::find(order.begin(), order.end(), p.file) - order.begin();
  };
  std::stable_sort(m_pages.begin(), m_pages.end(),
                   [&](const Page& a, const Page& b) { return rank(a) < rank(b); });
}

const Guide::Page* Guide::page(const std::string& file) const {
  for (const Page& p : m_pages)
    if (p.file == file) return &p;
  return nullptr;
}

std::vector<Guide::Hit> Guide::search(const std::string& query) const {
  std::vector<std::string> words;
  std::istringstream in(lower(query));
  for (std::string word; in >> word;) words.push_back(word);
  std::vector<Hit> hits;
  if (words.empty()) return hits;
  constexpr std::size_t kAround = 60;
  for (const Page& p : m_pages) {
    const std::string text = lower(p.text);
    const bool all = std::all_of(words.begin(), words.end(), [&](const std::string& word) {
      return text.find(word) != std::string::npos;
    });
    if (!all) continue;
    // The whole query where the page holds it as written, else its first word.
    std::string phrase = words.front();
    for (std::size_t k = 1; k < words.size(); ++k) phrase += " " + words[k];
    const std::size_t whole = text.find(phrase);
    const std::string& found = whole != std::string::npos ? phrase : words.front();
    const std::size_t at = whole != std::string::npos ? whole : text.find(found);
    const std::size_t from = at > kAround ? at - kAround : 0;
    std::string snippet = p.text.substr(from, found.size() + 2 * kAround);
    if (from > 0) snippet = "..." + snippet;
    if (from + found.size() + 2 * kAround < p.text.size()) snippet += "...";
    hits.push_back({p.file, p.title, snippet, p.text.substr(at, found.size())});
  }
  return hits;
}

std::vector<std::string> Guide::brokenLinks() const {
  std::vector<std::string> broken;
  for (const Page& p : m_pages) {
    for (const std::string& link : p.links) {
      if (external(link)) continue;
      const std::string file = fileOf(link);
      const std::size_t hash = link.find('#');
      const std::string anchor = hash == std::string::npos ? "" : link.substr(hash + 1);
      std::error_code error;
      const bool exists = file.empty() || fs::is_regular_file(fs::path(m_folder) / file, error);
      const Page* target = file.empty() ? &p : page(file);
      const bool anchored =
          anchor.empty() ||
          (target != nullptr && std::find(target->anchors.begin(), target->anchors.end(), anchor) !=
                                    target->anchors.end());
      if (!exists || !anchored) broken.push_back(p.file + ": " + link);
    }
  }
  return broken;
}

}  // namespace pescavo
