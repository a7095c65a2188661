// A node of the tree that is drawn nowhere and remembers what it was told to show.
#include "platform/services/KORGraphNode.h"

#include <algorithm>
#include <cstddef>
#include <map>

#include "platform/base/KORStatus.h"
#include "platform/system/KORPerform.h"

namespace {

// The images that stand for others; a part of the session.
struct ReplacedPixmaps {
  std::map<KORUnicodeString, KORUnicodeString> ByName;
};

std::string Quoted(const KORUnicodeString& name) {
  return '"' + std::string(name.Bytes()) + '"';
}

}  // namespace

KORUnicodeString KORGraphNode::isPixmapNameValid(const KORUnicodeString& name) {
  return KORGive("isPixmapNameValid", [&name] {
    const auto& replaced = KORSession::Current().GetPart<ReplacedPixmaps>().ByName;
    const auto found = replaced.find(name);
    return found == replaced.end() ? name : found->second;
  });
}

void KORGraphNode::ReplacePixmap(const KORUnicodeString& name, const KORUnicodeString& by) {
  KORSession::Current().GetPart<ReplacedPixmaps>().ByName.insert_or_assign(name, by);
}

int KORGraphNode::GetParentCount() {
  return KORGive("GetParentCount", [this] { return static_cast<int>(_Parents.size()); });
}

KORIGraphNode* KORGraphNode::GetParentNode(int position) {
  return KORGive("GetParentNode", [this, position]() -> KORIGraphNode* {
    if (position < 1 || position > static_cast<int>(_Parents.size())) return nullptr;
    return _Parents[static_cast<std::size_t>(position - 1)].Get();
  });
}

KORBaseUnknown* KORGraphNode::GetNodeObject() {
  return KORGive("GetNodeObject", [this]() -> KORBaseUnknown* {
    AddRef();
    return this;
  });
}

long KORGraphNode::SetIcon(const KORUnicodeString& name) {
  return KORPerform("SetIcon", [this, &name] {
    _Icon = name;
    _Masks.clear();
    _Calls.push_back("SetIcon(" + Quoted(name) + ")");
    return S_OK;
  });
}

long KORGraphNode::AddIconMask(const KORUnicodeString& name, int across, int down, int flag) {
  return KORPerform("AddIconMask", [&] {
    const Mask mask{name, across, down, flag};
    if (std::find(_Masks.begin(), _Masks.end(), mask) == _Masks.end()) _Masks.push_back(mask);
    _Calls.push_back("AddIconMask(" + Quoted(name) + ", " + std::to_string(across) + ", " + std::to_string(down) +
                     ", " + std::to_string(flag) + ")");
    return S_OK;
  });
}

long KORGraphNode::RefreshNodeImage(int reserved) {
  return KORPerform("RefreshNodeImage", [this, reserved] {
    _Calls.push_back("RefreshNodeImage(" + std::to_string(reserved) + ")");
    return S_OK;
  });
}

long KORGraphNode::RefreshNodeText(int reserved) {
  return KORPerform("RefreshNodeText", [this, reserved] {
    _Calls.push_back("RefreshNodeText(" + std::to_string(reserved) + ")");
    return S_OK;
  });
}
