'use strict';
(() => {
  const PER_PAGE = 100;
  const list = document.getElementById('page:list');
  const controls = document.getElementById('page:controls');
  const search = document.getElementById('page:search');
  const boxes = Array.from(controls.querySelectorAll('input[type=checkbox]'));
  const status = document.getElementById('page:status');
  const pager = document.getElementById('page:pager');
  const pageNumber = document.getElementById('page:number');
  const previous = document.getElementById('page:previous');
  const next = document.getElementById('page:next');

  // The data files of the first page are elements already. Further ones are read when they are asked for: id,
  // outcome, markup.
  const entries = Array.from(list.children, node => ({ id: node.id, outcome: node.dataset.outcome, node }));
  let data = document.getElementById('page:data');
  function all() {
    if (data) {
      // Without the section of character data around it, which only XML knows.
      const json = data.textContent.slice(9, -3);
      for (const [id, outcome, markup] of JSON.parse(json)) entries.push({ id, outcome, markup });
      data.remove();
      data = null;
    }
    return entries;
  }

  const characters = { '&amp;': '&', '&lt;': '<', '&gt;': '>', '&quot;': '"', '&#9;': '\t', '&#10;': '\n', '&#13;': '\r' };
  function textOf(entry) {
    if (entry.text === undefined) {
      const text = entry.node
        ? entry.node.textContent
        : entry.markup.replace(/<[^>]*>/g, '').replace(/&[^;]*;/g, entity => characters[entity]);
      entry.text = text.toLowerCase();
    }
    return entry.text;
  }
  function nodeOf(entry) {
    if (!entry.node) {
      const template = document.createElement('template');
      template.innerHTML = entry.markup;
      entry.node = template.content.firstElementChild;
    }
    return entry.node;
  }

  let shown = entries;
  let page = 0;
  const total = Number(list.dataset.total);
  function pages() { return Math.max(1, Math.ceil((shown === entries ? total : shown.length) / PER_PAGE)); }
  function showPage(number) {
    page = number;
    const first = page * PER_PAGE;
    list.replaceChildren(...shown.slice(first, first + PER_PAGE).map(nodeOf));
    tellPage();
  }
  function tellPage() {
    pager.hidden = pages() === 1;
    pageNumber.textContent = `Page ${page + 1} of ${pages()}`;
    previous.disabled = page === 0;
    next.disabled = page + 1 === pages();
  }
  function filter(number) {
    const words = search.value.toLowerCase().split(/\s+/).filter(word => word !== '');
    const outcomes = new Set(boxes.filter(box => box.checked).map(box => box.value));
    shown = all().filter(entry =>
      (outcomes.size === 0 || outcomes.has(entry.outcome)) && words.every(word => textOf(entry).includes(word)));
    status.textContent = `${shown.length} of ${entries.length} data files`;
    showPage(number);
  }
  function turnTo(number) {
    all();
    showPage(number);
    const heading = document.getElementById('page:datafiles-heading');
    heading.focus({ preventScroll: true });
    heading.scrollIntoView();
  }

  // A link to a data file that is not on this page of the list.
  function follow() {
    const id = location.hash.slice(1);
    if (id === '' || document.getElementById(id)) return;
    const place = all().findIndex(entry => entry.id === id);
    if (place < 0) return;
    search.value = '';
    for (const box of boxes) box.checked = false;
    filter(Math.floor(place / PER_PAGE));
    const node = nodeOf(entries[place]);
    node.focus({ preventScroll: true });
    node.scrollIntoView();
  }

  controls.addEventListener('submit', event => event.preventDefault());
  controls.addEventListener('input', () => filter(0));
  previous.addEventListener('click', () => turnTo(page - 1));
  next.addEventListener('click', () => turnTo(page + 1));
  addEventListener('hashchange', follow);

  tellPage();
  controls.hidden = false;
  follow();
})();
