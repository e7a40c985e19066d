// A gallery on a folder of the test's own, driven through the framework's own message loop.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "main_frame.h"
#include "tree_pane.h"

// A folder that is there for one test.
class TestFolder {
 public:
  TestFolder();
  ~TestFolder();
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  // Makes an empty file, or a folder when the name ends with a backslash.
  void Make(const std::wstring& name);
  void Remove(const std::wstring& name);
  const CString& Path() const { return m_path; }

 private:
  CString m_path;
  std::vector<CString> m_made;
};

class GalleryScene : public testing::Test {
 protected:
  ~GalleryScene() override;

  // Opens the gallery on the folder.
  void Open(const CommandLine& more = {});
  // Runs messages and idle work until nothing is left.
  void Run();
  void Command(UINT id);
  // A key through the accelerators, and characters as keys give them.
  void Key(UINT virtualKey);
  void Type(const std::string& letters);
  // The state of a command in the menu bar as a person would see it on opening the menu: MF_ bits.
  UINT MenuState(UINT id);
  // The lines of the log without their numbers.
  std::vector<std::string> LogLines();

  // The item at a path of labels.
  CVornTreeItem* Item(const std::wstring& path);
  // The labels of an item's children, between blanks.
  std::string Children(CVornTreeItem* item);
  std::string Label(CVornTreeItem* item);
  // The middle of a row's label, and of its button, on the screen.
  POINT LabelOf(CVornTreeItem* item);
  POINT ButtonOf(CVornTreeItem* item);

  CTreePane& Pane() { return *static_cast<CTreePane*>(m_frame->View().Page().Window()); }
  CGalleryTree& Tree() { return Pane().Tree(); }

  TestFolder m_folder;
  CMainFrame* m_frame = nullptr;  // deletes itself with its window
};

std::string Narrow(const CString& text);
