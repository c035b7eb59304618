"use strict";
const resources = JSON.parse(document.getElementById("resources-data").textContent);
const input = document.getElementById("search");
const rows = [...document.querySelectorAll("tr[data-resource]")];

function search() {
  const words = input.value.toLowerCase().split(/\s+/).filter(Boolean);
  const has = (text) => words.every((word) => text.toLowerCase().includes(word));
  let shown = 0;
  rows.forEach((row, i) => {
    const resource = resources[i];
    const keys = words.length === 0 ? [] : resource.keys.filter((key) => has(key.join(" ")));
    const visible = has(resource.name + " " + resource.group) || keys.length !== 0;
    row.hidden = !visible;
    shown += visible;
    const matches = row.querySelector(".matches");
    matches.replaceChildren(...keys.slice(0, 6).map(([path, meaning, place]) => {
      const line = document.createElement("div");
      const link = document.createElement("a");
      link.href = "resources/" + resource.name + ".html#" + place;
      link.textContent = path;
      line.append(link, meaning ? " " + meaning : "");
      return line;
    }));
    if (keys.length > 6)
      matches.append("and " + (keys.length - 6) + " more keys");
  });
  document.getElementById("count").textContent = words.length === 0 ? "" : shown + " of " + rows.length + " resources";
}
input.addEventListener("input", search);
search();
