// Shows the code of one language and hides the others; the choice is kept while the window is open.
function chooseLanguage(name) {
  var blocks = document.getElementsByTagName("pre");
  for (var i = 0; i < blocks.length; i++) {
    var title = blocks[i].getAttribute("title");
    if (title) blocks[i].style.display = (name === "" || title === name) ? "" : "none";
  }
  var tabs = document.getElementById("languageTabs");
  if (tabs) {
    var links = tabs.getElementsByTagName("a");
    for (var j = 0; j < links.length; j++)
      links[j].className = links[j].getAttribute("title") === name ? "chosen" : "";
  }
  try { window.name = "lang:" + name; } catch (e) { }
}
window.onload = function () {
  if (window.name.indexOf("lang:") === 0) chooseLanguage(window.name.substring(5));
};
