#include "links/links_reference.h"

#include "rules/sentinels.h"

namespace quillary::links_reference {
namespace {

constexpr Compare kIgnoreCase = Compare::IgnoreCase;

// A test that fails does not hold.
bool Stands(TextView text, std::int32_t start, TextView what) {
  bool stands = false;
  Attempt([&] { stands = Mid(text, start, Length(what)) == what; });
  return stands;
}

struct Stretch {
  std::int32_t start = 0;
  std::int32_t end = 0;
  Text matched;
};

void FindPrefix(const RtfToHtmlState& state, TextView lower, std::int32_t from, Stretch& stretch) {
  stretch.start = Length(lower);
  for (std::int32_t i = 1; i <= state.LinkPrefixes.upper(); ++i) {
    const std::int32_t hit = FindText(from, lower, state.LinkPrefixes[i]);
    if (hit > 0 && hit < stretch.start) {
      stretch.start = hit;
      stretch.matched = state.LinkPrefixes[i];
    }
  }
}

void FindEnd(const RtfToHtmlState& state, TextView lower, std::int32_t from, Stretch& stretch) {
  for (std::int32_t i = 1; i <= state.LinkDelimiters.upper() - 3; ++i) {
    const Text& delimiter = state.LinkDelimiters[i];
    const std::int32_t hit = FindText(from, lower, delimiter);
    if (hit == 0 || hit >= stretch.end) continue;
    if (Holds(stretch.matched, u"\\") && Holds(delimiter, u"\\")) continue;
    stretch.end = hit;
  }
}

bool LooksLikeMail(TextView candidate) {
  const std::int32_t at = FindText(1, candidate, u"@", kIgnoreCase);
  if (at == 0 || FindText(at, candidate, u".") == 0) return false;
  const std::int32_t colon = LastPosition(candidate, u":");
  return !(colon < at && colon > 7 && CountOccurrences(candidate, u"@") < 2);
}

}  // namespace

void ScanLinks(RtfToHtmlState& state, TextView copy) {
  state.FoundLinks.Size(2000);
  Text html(copy);
  Text lower = ToLower(html);
  std::int32_t search_from = 1;
  std::int32_t n = 1;
  Stretch s;
  Text label;
  while (true) {
    FindPrefix(state, lower, search_from, s);
    s.end = s.start + 200;
    FindEnd(state, lower, s.start + Length(s.matched), s);
    search_from = s.end;
    if (Stands(lower, s.end - 1, u".")) --s.end;
    if (s.end > s.start && Mid(html, s.start, s.end - s.start).size() > 3) {
      Text link;
      const Text through = Mid(html, s.start, s.end - s.start + 1);
      const bool closed = Right(through, 4) == u"&gt;";
      if (closed) {
        link = Left(through, Length(through) - 4);
      } else if (const Text candidate = Mid(html, s.start, s.end - s.start); !LooksLikeMail(candidate)) {
        link = candidate;
      }
      state.FoundLinks.Set(n, link);
      Text anchor;
      if (ToLower(Left(link, 3)) == u"www") {
        anchor = Joined({u"<a href=\"http://", link, u"\">", link, u"</a>"});
      } else if (!Holds(s.matched, u":\\")) {
        anchor = Joined({u"<a href=\"", link, u"\">", link, u"</a>"});
      } else if (!Holds(s.matched, u"file:\\\\")) {
        anchor = Joined({u"<a href=\"file://", link, u"\">", link, u"</a>"});
      } else {
        anchor = Joined({u"<a href=\"", link, u"\">", link, u"</a>"});
      }
      const std::int32_t length = Length(link);
      if (!link.empty()) {
        anchor = ReplaceAll(anchor, u"@", sentinels::at_sign);
        const std::int32_t space = FindText(s.end + 2, html, u" ");
        if (closed && Stands(html, s.start - 4, u"&lt;")) {
          if (link.ends_with(u".gif") || link.ends_with(u".jpg") || link.ends_with(u".jpeg") ||
              link.ends_with(u".png")) {
            html = Joined({Left(html, s.start - 5), u"<img border=\"0\" src=\"", link, u"\">",
                           Mid(html, s.start + length + 4)});
          } else {
            html = Joined({Left(html, s.start - 1), anchor, Mid(html, s.start + length)});
          }
        } else if (Stands(html, s.end + 1, u"&lt;") && space > 0 && Stands(html, space - 4, u"&gt;")) {
          const Text target = Mid(html, s.end + 5, FindText(s.end + 5, html, u"&gt;") - s.end - 5);
          Attempt([&] { label = Mid(html, s.start, FindText(s.start, html, u"&lt;") - 1 - s.start); });
          anchor = Joined({u"<a href=\"", target, u"\">", label, u"</a>"});
          ReplaceIn(html, Joined({label, u" &lt;", target, u"&gt; "}), anchor, kIgnoreCase, 1);
        } else {
          html = Joined({Left(html, s.start - 1), anchor, Mid(html, s.start + length)});
        }
      }
      search_from += Length(anchor) - length;
      lower = ToLower(html);
      if (++n > 1995) break;
    }
    if (s.start > Length(html) - 4) break;
  }
  state.FoundLinks.Set(n, u"");
  state.HtmlOut.Assign(html);
}

void ScanBracketLinks(RtfToHtmlState& state, TextView copy) {
  state.FoundLinks.Size(2000);
  Text html(copy);
  Text lower = ToLower(html);
  std::int32_t search_from = 1;
  std::int32_t n = 1;
  Stretch s;
  while (true) {
    FindPrefix(state, lower, search_from, s);
    s.start += Length(s.matched);
    s.end = s.start + 100;
    FindEnd(state, lower, s.start, s);
    search_from = s.end;
    if (Stands(lower, s.end - 1, u".")) --s.end;
    Text link = Mid(html, s.start, std::max(0, s.end - s.start));
    if (link.size() > 3) {
      const Text through = Mid(html, s.start, s.end - s.start + 1);
      if (Right(through, 4) == u"&gt;") link = Left(through, Length(through) - 4);
      state.FoundLinks.Set(n, link);
      const TextView scheme = Holds(s.matched, u"file:")     ? TextView(u"file://")
                              : Holds(s.matched, u"mailto:") ? TextView(u"mailto:")
                                                             : TextView();
      const Text anchor = Joined({u"<a href=\"", scheme, link, u"\">", link, u"</a>"});
      if (!link.empty()) {
        html = Joined(
            {Left(html, s.start - 1 - Length(s.matched)), anchor, Mid(html, s.start + Length(link) + 4)});
      }
      search_from += Length(anchor) - Length(link);
      lower = ToLower(html);
      if (++n > 1995) break;
    }
    if (s.start > Length(html) - 2) break;
  }
  state.FoundLinks.Set(n, u"");
  state.HtmlOut.Assign(html);
}

Text StripEmailFringe(Text& word) {
  // Whether the word matches anything, one unit of the set, anything, "@",
  // anything; or the same with the at sign first.
  const auto matches = [&word](TextView set, bool at_first) {
    for (std::size_t i = 0; i < word.size(); ++i) {
      for (std::size_t j = i + 1; j < word.size(); ++j) {
        if (word[at_first ? i : j] == u'@' && set.find(word[at_first ? j : i]) != TextView::npos) return true;
      }
    }
    return false;
  };
  while (true) {
    if (matches(u", :<'\">`/\\+=|()&^%~$", false)) {
      word.erase(0, 1);
    } else if (matches(u", :\"'<>`\\/+=|()&^%!$~", true)) {
      word.pop_back();
    } else {
      return word;
    }
  }
}

Text ExtractEmailAddress(TextView stretch) {
  if (stretch.size() < 4) return {};
  const std::int32_t limit = std::min(30000, Length(stretch) + 20);
  std::int32_t pos = 1;
  for (std::int32_t step = 0; step < limit; ++step) {
    const std::int32_t space = FindText(pos, stretch, u" ");
    Text candidate = space > 0 ? Mid(stretch, pos, space - pos + 1) : Mid(stretch, pos);
    pos = space > 0 ? space + 1 : 1;
    if (!Holds(candidate, u"@")) continue;
    StripEmailFringe(candidate);
    for (bool again = true; again;) {
      const Text first = Left(candidate, 1);
      const Text last = Right(candidate, 1);
      again = true;
      if (last == u"@")
        candidate.pop_back();
      else if (first == u"@")
        candidate.erase(0, 1);
      else if (last == u"-")
        candidate.pop_back();
      else if (first == u"-")
        candidate.erase(0, 1);
      else if (last == u".")
        candidate.pop_back();
      else if (first == u".")
        candidate.erase(0, 1);
      else {
        again = false;
        for (const char16_t unit : TextView(u"\n\r?#}{()[]*!£$\t; ")) {
          const std::int32_t at = FindText(1, candidate, Text(1, unit));
          if (at == 0) continue;
          if (at >= FindText(1, candidate, u"@"))
            candidate.pop_back();
          else
            candidate.erase(0, 1);
          again = true;
          break;
        }
      }
    }
    bool good = Holds(candidate, u"@") && Holds(candidate, u".");
    for (const TextView bad : {u"@.", u".@", u"-.", u".-", u"@-", u"-@"})
      good = good && !Holds(candidate, bad);
    if (good) return candidate;
  }
  return {};
}

void ScanEmailAddresses(RtfToHtmlState& state, TextView copy) {
  state.FoundEmails.Size(2000);
  Text html(copy);
  Text lower = ToLower(html);
  std::int32_t n = 1;
  std::int32_t right = Length(lower);
  std::int32_t at = FindText(1, lower, u"@");
  Text previous;
  Text word;
  while (at > 0) {
    for (std::int32_t i = 1; i <= state.LinkDelimiters.upper(); ++i) {
      const std::int32_t hit = FindText(at + 1, lower, state.LinkDelimiters[i]);
      if (hit < right && hit > at) right = hit;
    }
    std::int32_t left = at - 1;
    std::int32_t k = at - 1;
    for (bool found = false; k > 0 && !found; --k) {
      for (std::int32_t i = 1; i <= state.LinkDelimiters.upper(); ++i) {
        found = found || Mid(lower, k, 1) == state.LinkDelimiters[i];
      }
      if (found) left = k - 1;
      if (!found && k == 1) left = 0;
    }
    if (Stands(lower, right - 1, u".")) --right;
    Attempt([&] { word = Mid(html, left + 2, right - left - 2); });
    const Text address = word.size() > 3 ? links_reference::ExtractEmailAddress(word) : Text();
    if (!address.empty()) {
      state.FoundEmails.Set(n, address);
      const Text anchor = Joined({u"<a href=\"mailto:", address, u"\">", address, u"</a>"});
      const std::int32_t length = Length(address);
      // After what the word lost at the front: the address is looked for from
      // the end, as all that can stand twice in the word is cut off its front.
      const std::int32_t own = left + 1 + LastPosition(word, address);
      if (!Trim(previous).empty() && Stands(html, own - 11, u"&lt;mailto:") &&
          Stands(html, own + length, u"&gt;") && address == previous) {
        Attempt([&] { html = Left(html, own - 13) + Mid(html, own + length + 4); });
        previous.clear();
      } else {
        previous = address;
        html = Joined({Left(html, left + 1), anchor, Mid(html, left + length + 2)});
      }
      right += Length(anchor) - length;
      lower = ToLower(html);
      if (++n > 1995) break;
    }
    at = FindText(right, lower, u"@");
    right = Length(lower);
    if (at > right - 4) break;
  }
  state.FoundEmails.Set(n, u"");
  state.HtmlOut.Assign(html);
}

namespace {

bool TakeTags(Text& label, Text& fonts, int most, bool blue) {
  for (int i = 0; i < most && Holds(label, u"<"); ++i) {
    const std::int32_t end = FindText(1, label, u">");
    if (Left(label, 6) != u"<font " || end == 0) return false;
    fonts += Left(label, end);
    label = ReplaceAll(Mid(label, end + 1), fonts, u"", kIgnoreCase);
    if (blue) label = ReplaceAll(label, u"<font COLOR=\"#0000ff\">", u"", Compare::Binary, 1);
    if (blue) label = ReplaceAll(label, u"<font color=\"#0000ff\">", u"", Compare::Binary, 1);
  }
  return true;
}

void Remove(Text& text, std::initializer_list<TextView> finds) {
  for (const TextView find : finds) text = ReplaceAll(text, find, u"");
}

}  // namespace

Text RepairLabelLinks(TextView given) {
  Text html(given);
  const Text run_end = u"&gt;</u><font COLOR=\"#000000\">";
  for (int i = 0; i < 250; ++i) {
    const std::int32_t hit = FindText(1, html, run_end, kIgnoreCase);
    if (hit == 0) break;
    const Text left = Left(html, hit + 3);
    const std::int32_t a = LastPosition(left, u"&lt;", kIgnoreCase);
    const std::int32_t u = LastPosition(left, u"<u>", kIgnoreCase);
    if (a == 0 || u == 0 || a <= u) break;
    Text label = Mid(left, u + 3, a - u);
    Text fonts;
    if (!TakeTags(label, fonts, 10, false)) break;
    if (Holds(label, u">") || !Holds(label, u"&l")) break;
    Remove(label, {u" &lt;", u" &lt", u"&lt;", u"&lt", u"&l"});
    Text target = Mid(left, a);
    Remove(target, {u" &lt;", u" &lt", u"&lt;", u"&lt", u"&l", u" &gt;", u" &gt", u"&gt;", u"&gt", u"&g"});
    target = Trim(target);
    if (!Holds(target, u".")) break;
    html = ReplaceAll(html, Joined({u"<u>", fonts, label, u" &lt;", target, u"&gt;"}),
                      Joined({u"<u>", fonts, u"<a href=\"", target, u"\">", Trim(label), u"</a></u>"}),
                      kIgnoreCase);
  }
  return html;
}

Text RepairLabelAnchors(TextView given) {
  Text html(given);
  const Text blue = u"<font COLOR=\"#0000ff\">";
  for (int i = 0; i < 250; ++i) {
    const std::int32_t hit = FindText(1, html, u"</a>&gt;</u>", kIgnoreCase);
    if (hit == 0) break;
    const Text left = Left(html, hit + 11);
    const std::int32_t a = LastPosition(left, u"&lt;<a ", kIgnoreCase);
    const std::int32_t u = LastPosition(left, u"<u>", kIgnoreCase);
    if (a == 0 || u == 0 || a <= u) return html;
    Text label = Mid(left, u + 3, a - u);
    Text fonts;
    if (!TakeTags(label, fonts, 12, true)) return html;
    if (Holds(label, u">") || !Holds(label, u"&l")) return html;
    Remove(label, {u" &lt;", u"&lt;", u"&lt", u"&l"});
    const Text anchor = Mid(left, a);
    const std::int32_t href = FindText(1, anchor, u"href=\"");
    const std::int32_t quote = href > 0 ? FindText(href + 6, anchor, u"\"") : 0;
    if (quote <= href + 6) return html;
    if (fonts.empty() && label.empty()) continue;
    const Text fresh =
        Joined({u"<u><a href=\"", Mid(anchor, href + 6, quote - href - 6), u"\">", Trim(label), u"</a></u>"});
    html = ReplaceAll(html, Joined({u"<u>", fonts, blue, label, anchor}), fonts + fresh, kIgnoreCase);
    html = ReplaceAll(html, Joined({blue, u"<u>", label, anchor}), fresh, kIgnoreCase);
    html = ReplaceAll(html, Joined({u"<u>", fonts, label, anchor}), fonts + fresh, kIgnoreCase);
    html = ReplaceAll(html, Joined({u"<u>", fonts, label, anchor}), fresh, kIgnoreCase);
  }
  for (const TextView ending : {u".gif\"></u>", u".jpg\"></u>", u"jpeg\"></u>", u".png\"></u>"}) {
    if (Holds(html, ending)) return links_reference::RepairPictureLinks(html);
  }
  return html;
}

Text RepairPictureLinks(TextView given) {
  Text html(given);
  for (int i = 0; i < 250; ++i) {
    std::int32_t p = 0;
    for (const TextView ending : {u".gif\"></u>", u".jpg\"></u>", u"jpeg\"></u>", u".png\"></u>"}) {
      if (p < 5) p = FindText(1, html, ending);
    }
    if (p < 5) break;
    const Text left = Left(html, p + 11);
    const std::int32_t a = LastPosition(left, u" <img border=");
    const std::int32_t u = LastPosition(left, u"<u>", kIgnoreCase);
    if (a == 0 || u == 0) break;
    Text label = Mid(left, u + 3, a - u - 3);
    Text fonts;
    if (!TakeTags(label, fonts, 12, true) || Holds(label, u">")) break;
    if (Holds(label, u"&l")) Remove(label, {u" &lt;", u"&lt;", u"&lt", u"&l"});
    const std::int32_t source = FindText(a, left, u" src=\"");
    const std::int32_t quote = source > 0 ? FindText(source + 6, left, u"\"") : 0;
    if (quote == 0) break;
    const Text file = Trim(Mid(left, source + 6, quote - source - 6));
    if (fonts.empty() && label.empty()) continue;
    const Text run = Joined({label, u" <img border=\"0\" src=\"", file, u"\">"});
    const Text fresh = Joined({u"<u><a href=\"", file, u"\">", run, u"</a></u>"});
    html = ReplaceAll(html, Joined({u"<u>", run, u"</u>"}), fresh);
    html = ReplaceAll(html, Joined({u"<u>", fonts, run, u"</u>"}), fresh);
    html = ReplaceAll(html, Joined({u"<font COLOR=\"#0000ff\"><u>", run, u"</u>"}), fresh);
  }
  return html;
}

}  // namespace quillary::links_reference
