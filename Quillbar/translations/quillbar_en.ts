<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="zh_CN">
<context>
    <name>app</name>
    <message>
        <source>Quillbar 正在运行，但没有应答</source>
        <translation>Quillbar is running, but does not answer</translation>
    </message>
    <message>
        <source>Quillbar 没有在运行</source>
        <translation>Quillbar is not running</translation>
    </message>
    <message>
        <source>没有图形会话；在终端里请使用 quillbar-label</source>
        <translation>There is no graphical session; in a terminal use quillbar-label</translation>
    </message>
    <message>
        <source>无法连接显示服务器；在终端里请使用 quillbar-label</source>
        <translation>Cannot connect to the display server; in a terminal use quillbar-label</translation>
    </message>
    <message>
        <source>没有会话总线，无法在后台运行</source>
        <translation>There is no session bus, so Quillbar cannot run in the background</translation>
    </message>
    <message>
        <source>隐藏数字</source>
        <translation>Hide numbers</translation>
    </message>
</context>
<context>
    <name>boards</name>
    <message>
        <source>加载行情失败</source>
        <translation>Could not load the market</translation>
    </message>
    <message>
        <source>重试</source>
        <translation>Retry</translation>
    </message>
    <message>
        <source>暂无数据</source>
        <translation>No data</translation>
    </message>
    <message>
        <source>正在加载行情</source>
        <translation>Loading the market</translation>
    </message>
    <message>
        <source>币种</source>
        <translation>Coin</translation>
    </message>
    <message>
        <source>价格</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>涨跌</source>
        <translation>Change</translation>
    </message>
    <message>
        <source>%1榜</source>
        <translation>%1 board</translation>
    </message>
    <message>
        <source>市值刷新失败,%1</source>
        <translation>Market caps could not be updated; %1</translation>
    </message>
    <message>
        <source>市值已停止刷新,%1</source>
        <translation>Market caps are no longer updated; %1</translation>
    </message>
    <message>
        <source>数据刷新失败</source>
        <translation>Could not update the data</translation>
    </message>
    <message>
        <source>刷新失败,数据为刚才的</source>
        <translation>Update failed; data from just now</translation>
    </message>
    <message>
        <source>已停止刷新,数据为刚才的</source>
        <translation>No longer updated; data from just now</translation>
    </message>
    <message numerus="yes">
        <source>刷新失败,数据为%n 分钟前的</source>
        <translation>
            <numerusform>Update failed; data is %n minute old</numerusform>
            <numerusform>Update failed; data is %n minutes old</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>已停止刷新,数据为%n 分钟前的</source>
        <translation>
            <numerusform>No longer updated; data is %n minute old</numerusform>
            <numerusform>No longer updated; data is %n minutes old</numerusform>
        </translation>
    </message>
    <message>
        <source>已在自选列表中</source>
        <translation>On the watchlist</translation>
    </message>
    <message>
        <source>加入自选</source>
        <translation>Add to watchlist</translation>
    </message>
    <message>
        <source>加入自选 %1</source>
        <translation>Add %1 to watchlist</translation>
    </message>
    <message>
        <source>%1，%2，价格 %3，涨跌 %4，%5 %6</source>
        <translation>%1, %2, price %3, change %4, %5 %6</translation>
    </message>
    <message>
        <source>市值</source>
        <translation>Market cap</translation>
    </message>
    <message>
        <source>成交额</source>
        <translation>Volume</translation>
    </message>
</context>
<context>
    <name>chart</name>
    <message>
        <source>起始 %1</source>
        <translation>Open %1</translation>
    </message>
    <message>
        <source>最新 %1</source>
        <translation>Last %1</translation>
    </message>
    <message>
        <source>区间 %1</source>
        <translation>Change %1</translation>
    </message>
    <message>
        <source>高 %1</source>
        <translation>High %1</translation>
    </message>
    <message>
        <source>低 %1</source>
        <translation>Low %1</translation>
    </message>
    <message>
        <source>，</source>
        <translation>, </translation>
    </message>
    <message>
        <source>重试</source>
        <translation>Retry</translation>
    </message>
    <message>
        <source>%1 走势</source>
        <translation>%1 chart</translation>
    </message>
    <message>
        <source>正在加载走势</source>
        <translation>Loading the chart</translation>
    </message>
    <message>
        <source>区间</source>
        <translation>Change</translation>
    </message>
    <message>
        <source>高</source>
        <translation>High</translation>
    </message>
    <message>
        <source>低</source>
        <translation>Low</translation>
    </message>
    <message>
        <source>%1 走势图，%2</source>
        <translation>%1 chart, %2</translation>
    </message>
    <message>
        <source>加载走势失败</source>
        <translation>Could not load the chart</translation>
    </message>
    <message>
        <source>暂无数据</source>
        <translation>No data</translation>
    </message>
    <message>
        <source>%1，%2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1；%2</source>
        <translation>%1; %2</translation>
    </message>
    <message>
        <source>走势范围：%1</source>
        <translation>Chart range: %1</translation>
    </message>
    <message>
        <source>一天</source>
        <translation>one day</translation>
    </message>
    <message>
        <source>一周</source>
        <translation>one week</translation>
    </message>
    <message>
        <source>一个月</source>
        <translation>one month</translation>
    </message>
</context>
<context>
    <name>core</name>
    <message>
        <source>涨幅</source>
        <translation>Gainers</translation>
    </message>
    <message>
        <source>跌幅</source>
        <translation>Losers</translation>
    </message>
    <message>
        <source>成交额</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>市值</source>
        <translation>Market cap</translation>
    </message>
    <message>
        <source>今日</source>
        <translation>Today</translation>
    </message>
    <message>
        <source>24 小时</source>
        <translation>24 hours</translation>
    </message>
    <message>
        <source>深色</source>
        <translation>Dark</translation>
    </message>
    <message>
        <source>浅色</source>
        <translation>Light</translation>
    </message>
    <message>
        <source>跟随系统</source>
        <translation>Follow system</translation>
    </message>
    <message>
        <source>设置未能保存到磁盘</source>
        <translation>The settings could not be saved to disk</translation>
    </message>
    <message>
        <source>外观设置保存失败,重启后会恢复原值</source>
        <translation>The appearance could not be saved and will be as before after a restart</translation>
    </message>
</context>
<context>
    <name>instance</name>
    <message>
        <source>用法：quillbar [选项]

在桌面的状态栏里显示固定币种的实时价格，点击后打开行情面板。
已在运行时，再次启动会显示或隐藏面板。

选项：
  --show           显示面板
  --toggle         显示或隐藏面板，适合绑定快捷键
  --preferences    显示偏好设置
  --discreet       隐藏或重新显示状态栏里的数字，适合绑定快捷键
  --quit           退出正在运行的程序
  --background     在后台启动，不打开面板，适合开机自启；已在运行时什么也不做
  --help           显示本说明
  --version        显示版本

退出状态：0 成功；1 无法启动，或没有可以操作的程序；2 参数或环境变量有误。

环境变量：
  QUILLBAR_REST_ENDPOINTS      行情接口地址，以逗号分隔
  QUILLBAR_STREAM_ENDPOINTS    实时行情地址，以逗号分隔
  QUILLBAR_MARKETCAP_ENDPOINT  市值接口地址
  QUILLBAR_ICON_ENDPOINT       图标地址
  QUILLBAR_CA_FILE             额外信任的证书颁发机构（PEM 文件）
</source>
        <translation>Usage: quillbar [OPTION]

Shows the live price of the pinned coin in the desktop&apos;s status area, and opens
a panel with the market at a click. Started again while it runs, it shows the
panel or hides it.

Options:
  --show           show the panel
  --toggle         show or hide the panel, for a key of your own
  --preferences    show the preferences
  --discreet       hide or show the numbers in the status area, for a key of your own
  --quit           quit the Quillbar that runs
  --background     start without opening the panel, as at login; does nothing while
                   Quillbar runs
  --help           print this help
  --version        print the version

Exit status: 0 success; 1 could not start, or there was no Quillbar to ask;
2 an option or an environment variable is wrong.

Environment variables:
  QUILLBAR_REST_ENDPOINTS      addresses of the market data, separated by commas
  QUILLBAR_STREAM_ENDPOINTS    addresses of the live prices, separated by commas
  QUILLBAR_MARKETCAP_ENDPOINT  address of the market capitalisations
  QUILLBAR_ICON_ENDPOINT       address of the logos
  QUILLBAR_CA_FILE             certificate authorities to trust as well (a PEM file)
</translation>
    </message>
    <message>
        <source>未知的参数「{}」，请看 --help</source>
        <translation>unknown option &quot;{}&quot;; see --help</translation>
    </message>
    <message>
        <source>--show、--toggle、--preferences、--discreet、--quit 与 --background 只能使用其一</source>
        <translation>use only one of --show, --toggle, --preferences, --discreet, --quit and --background</translation>
    </message>
</context>
<context>
    <name>label</name>
    <message>
        <source>（{}）</source>
        <translation> ({})</translation>
    </message>
    <message>
        <source>暂无数据</source>
        <translation>No data</translation>
    </message>
    <message>
        <source>加载行情失败</source>
        <translation>Could not load the market</translation>
    </message>
    <message>
        <source>{}涨跌 {}
成交额 {}
</source>
        <translation>Change ({}) {}
Volume {}
</translation>
    </message>
    <message>
        <source>更新于 {}
</source>
        <translation>Updated at {}
</translation>
    </message>
    <message>
        <source>用法：quillbar-label [选项]

显示固定币种的实时价格，适用于状态栏和终端。

选项：
  --once           等到价格后输出一行并退出（默认，最多等 15 秒）
  --follow         每当文字变化时输出一行
  --boards         输出涨幅、跌幅、成交额、市值四个榜单的前十名并退出
  --format 格式    text（默认）、json 或 waybar，不能与 --boards 同用
  --template 模板  自己写文字，如 &apos;{symbol} {price:.0} {change}&apos;，不能与 --boards 同用
  --symbol 币种    输出这个币种，如 ETH 或 ETH/USDT，可多次使用，不能与 --boards 同用
  --help           显示本说明
  --version        显示版本

模板里可用 {symbol}（币种）、{price}（价格）、{arrow}（箭头）和 {change}（涨跌幅，模板里没有箭头时带正负号）。
冒号后依次可写 &lt; 或 &gt;（靠左或靠右）、宽度和小数位数，如 {price:&gt;10.2}；大括号本身写作 {{ 和 }}。
没有当前价格时只输出币种名称。json 和 waybar 的 text 也按模板。

退出状态：0 成功；2 参数或环境变量有误；3 未能及时得到价格；4 未能写出结果。

环境变量：
  QUILLBAR_REST_ENDPOINTS      行情接口地址，以逗号分隔
  QUILLBAR_STREAM_ENDPOINTS    实时行情地址，以逗号分隔
  QUILLBAR_MARKETCAP_ENDPOINT  市值接口地址
  QUILLBAR_CA_FILE             额外信任的证书颁发机构（PEM 文件）
</source>
        <translation>Usage: quillbar-label [OPTION]...

Prints the live price of the pinned coin, for status bars and terminals.

Options:
  --once               print one line as soon as there is a price, and end
                       (the default; waits 15 seconds at most)
  --follow             print a line whenever the text changes
  --boards             print the first ten of the boards of gainers, losers, volume
                       and market cap, and end
  --format FORMAT      text (the default), json or waybar; not with --boards
  --template TEMPLATE  a wording of your own, like
                       &apos;{symbol} {price:.0} {change}&apos;; not with --boards
  --symbol COIN        print this coin, such as ETH or ETH/USDT; can be given several
                       times; not with --boards
  --help               print this help
  --version            print the version

A template can have {symbol}, {price}, {arrow} and {change}; the change has a sign
where the template has no arrow. After a colon, in this order: &lt; or &gt; (left or
right), the width and the number of decimals, as in {price:&gt;10.2}. For a brace itself
write {{ or }}. Without a current price the line is the coin&apos;s name alone. The text of
json and waybar follows the template, too.

Exit status: 0 success; 2 an option or an environment variable is wrong; 3 no price
came in time; 4 the result could not be written.

Environment variables:
  QUILLBAR_REST_ENDPOINTS      addresses of the market data, separated by commas
  QUILLBAR_STREAM_ENDPOINTS    addresses of the live prices, separated by commas
  QUILLBAR_MARKETCAP_ENDPOINT  address of the market capitalisations
  QUILLBAR_CA_FILE             certificate authorities to trust as well (a PEM file)
</translation>
    </message>
    <message>
        <source>--format 需要一个格式：text、json 或 waybar</source>
        <translation>--format needs a format: text, json or waybar</translation>
    </message>
    <message>
        <source>--template 需要一个模板，如 &apos;{symbol} {price}&apos;</source>
        <translation>--template needs a template, like &apos;{symbol} {price}&apos;</translation>
    </message>
    <message>
        <source>--symbol 需要一个币种，如 ETH</source>
        <translation>--symbol needs a coin, like ETH</translation>
    </message>
    <message>
        <source>--once、--follow 与 --boards 只能使用其一</source>
        <translation>use only one of --once, --follow and --boards</translation>
    </message>
    <message>
        <source>未知的格式「{}」，可用 text、json 或 waybar</source>
        <translation>unknown format &quot;{}&quot;; use text, json or waybar</translation>
    </message>
    <message>
        <source>--template 的第 {} 个字符：{}</source>
        <translation>--template, character {}: {}</translation>
    </message>
    <message>
        <source>「{}」不是 USDT 交易对，请写 ETH 或 ETH/USDT，多个币种请多次使用 --symbol</source>
        <translation>&quot;{}&quot; is not a USDT pair; write ETH or ETH/USDT, and repeat --symbol for more coins</translation>
    </message>
    <message>
        <source>--boards 只能输出文本，不能与 --format 同用</source>
        <translation>--boards prints text alone, and cannot be used with --format</translation>
    </message>
    <message>
        <source>--boards 不能与 --template 同用</source>
        <translation>--boards cannot be used with --template</translation>
    </message>
    <message>
        <source>--boards 不能与 --symbol 同用</source>
        <translation>--boards cannot be used with --symbol</translation>
    </message>
    <message>
        <source>未知的参数「{}」，请看 --help</source>
        <translation>unknown option &quot;{}&quot;; see --help</translation>
    </message>
    <message>
        <source>、</source>
        <translation>, </translation>
    </message>
    <message>
        <source>「{}」</source>
        <translation>&quot;{}&quot;</translation>
    </message>
    <message>
        <source>交易所没有币种{}</source>
        <translation>the exchange does not have {}</translation>
    </message>
</context>
<context>
    <name>labelstate</name>
    <message>
        <source>未连接</source>
        <translation>Not connected</translation>
    </message>
    <message>
        <source>正在连接</source>
        <translation>Connecting</translation>
    </message>
    <message>
        <source>已连接</source>
        <translation>Connected</translation>
    </message>
    <message>
        <source>连接中断，等待重试</source>
        <translation>Connection lost, waiting to retry</translation>
    </message>
    <message>
        <source>连接没有数据</source>
        <translation>Connected, but without data</translation>
    </message>
    <message>
        <source>模板不能为空</source>
        <translation>the template is empty</translation>
    </message>
    <message>
        <source>「}」之前没有「{」，要写大括号本身请用「}}」</source>
        <translation>no &quot;{&quot; stands before this &quot;}&quot;; for a brace itself write &quot;}}&quot;</translation>
    </message>
    <message>
        <source>「{」之后没有「}」，要写大括号本身请用「{{」</source>
        <translation>no &quot;}&quot; follows this &quot;{&quot;; for a brace itself write &quot;{{&quot;</translation>
    </message>
    <message>
        <source>未知的字段「{}」，可用 symbol、price、arrow 或 change</source>
        <translation>unknown field &quot;{}&quot;; use symbol, price, arrow or change</translation>
    </message>
    <message>
        <source>冒号后依次可写：&lt; 或 &gt;（靠左或靠右）、宽度（1 到 {}）、小数位数（.0 到 .{}），如「&gt;10.2」</source>
        <translation>after the colon, in this order: &lt; or &gt; (left or right), the width (1 to {}), the decimals (.0 to .{}), as in &quot;&gt;10.2&quot;</translation>
    </message>
    <message>
        <source>这里应是宽度，1 到 {}</source>
        <translation>a width from 1 to {} is missing here</translation>
    </message>
    <message>
        <source>只有 price 和 change 有小数位数</source>
        <translation>only price and change have decimals</translation>
    </message>
    <message>
        <source>这里应是小数位数，0 到 {}</source>
        <translation>the number of decimals, 0 to {}, is missing here</translation>
    </message>
    <message>
        <source>无法解析服务器地址</source>
        <translation>The server&apos;s name cannot be resolved</translation>
    </message>
    <message>
        <source>无法连接到服务器</source>
        <translation>Cannot connect to the server</translation>
    </message>
    <message>
        <source>代理不可用</source>
        <translation>The proxy is not available</translation>
    </message>
    <message>
        <source>连接超时</source>
        <translation>The connection timed out</translation>
    </message>
    <message>
        <source>安全连接失败或证书不可信</source>
        <translation>The secure connection failed, or the certificate is not trusted</translation>
    </message>
    <message>
        <source>服务器关闭了连接</source>
        <translation>The server closed the connection</translation>
    </message>
    <message>
        <source>连接意外断开</source>
        <translation>The connection was lost</translation>
    </message>
    <message>
        <source>服务器的数据过大</source>
        <translation>The server sent too much data</translation>
    </message>
    <message>
        <source>当前地区无法访问行情服务</source>
        <translation>The price service is not available in this region</translation>
    </message>
    <message>
        <source>服务器地址无效</source>
        <translation>The server&apos;s address is not valid</translation>
    </message>
    <message>
        <source>没有可用的服务器</source>
        <translation>No server is available</translation>
    </message>
    <message>
        <source>连接已取消</source>
        <translation>The connection was cancelled</translation>
    </message>
    <message>
        <source>连接出现异常</source>
        <translation>Something went wrong with the connection</translation>
    </message>
    <message>
        <source>服务器返回 {}</source>
        <translation>The server answered {}</translation>
    </message>
</context>
<context>
    <name>list</name>
    <message>
        <source>%1，降序</source>
        <translation>%1, descending</translation>
    </message>
    <message>
        <source>%1，升序</source>
        <translation>%1, ascending</translation>
    </message>
    <message>
        <source>点击排序:降序 → 升序 → 手动顺序</source>
        <translation>Click to sort: descending → ascending → manual order</translation>
    </message>
</context>
<context>
    <name>notifications</name>
    <message>
        <source>查看走势</source>
        <translation>Show chart</translation>
    </message>
</context>
<context>
    <name>panel</name>
    <message numerus="yes">
        <source>行情已 %n 分钟没有更新</source>
        <translation>
            <numerusform>No new prices for %n minute</numerusform>
            <numerusform>No new prices for %n minutes</numerusform>
        </translation>
    </message>
    <message>
        <source>知道了</source>
        <translation>Got it</translation>
    </message>
    <message>
        <source>知道了，%1</source>
        <translation>Got it: %1</translation>
    </message>
    <message>
        <source>删除提醒</source>
        <translation>Delete alert</translation>
    </message>
    <message>
        <source>删除提醒，%1 %2</source>
        <translation>Delete alert: %1 %2</translation>
    </message>
    <message>
        <source>提醒</source>
        <translation>Alerts</translation>
    </message>
    <message>
        <source>提示音</source>
        <translation>Sound</translation>
    </message>
    <message>
        <source>撤销</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>价格提醒出现时响一声</source>
        <translation>Play a sound for each price alert</translation>
    </message>
    <message>
        <source>还没有价格提醒。在自选列表的一行上点右键，选“价格提醒…”。</source>
        <translation>No price alerts yet. Right-click a row of the watchlist and choose &quot;Price alerts...&quot;.</translation>
    </message>
    <message>
        <source>价格提醒</source>
        <translation>Price alerts</translation>
    </message>
    <message>
        <source>提醒未能保存到磁盘，重启后会丢失</source>
        <translation>The alerts could not be saved, and will be lost at the next start</translation>
    </message>
    <message>
        <source>已删除 %1 %2</source>
        <translation>Deleted %1 %2</translation>
    </message>
    <message>
        <source>撤销，%1</source>
        <translation>Undo: %1</translation>
    </message>
    <message>
        <source>颜色</source>
        <translation>Colours</translation>
    </message>
    <message>
        <source>连接中…</source>
        <translation>Connecting...</translation>
    </message>
    <message>
        <source>连接中… 最后更新 %1</source>
        <translation>Connecting... Last update %1</translation>
    </message>
    <message>
        <source>连不上代理。请检查 https_proxy、all_proxy 或桌面网络设置里的代理。
改了变量后，按 Ctrl+Q 退出后重新启动</source>
        <translation>The proxy cannot be reached. Check https_proxy, all_proxy or the proxy in the desktop&apos;s network settings.
After changing a variable, quit with Ctrl+Q and start again</translation>
    </message>
    <message>
        <source>%1。请检查网络。
需要代理时，在桌面的网络设置里填写；
或设置 https_proxy、all_proxy，按 Ctrl+Q 退出后重新启动。
也可以改用自己的镜像：
QUILLBAR_REST_ENDPOINTS、QUILLBAR_STREAM_ENDPOINTS</source>
        <translation>%1. Check the network.
If you need a proxy, enter it in the desktop&apos;s network settings,
or set https_proxy or all_proxy, quit with Ctrl+Q and start again.
You can also use mirrors of your own:
QUILLBAR_REST_ENDPOINTS, QUILLBAR_STREAM_ENDPOINTS</translation>
    </message>
    <message numerus="yes">
        <source>自选列表过长，只更新前 %n 个币种</source>
        <translation>
            <numerusform>The watchlist is too long: only the first %n coin is updated</numerusform>
            <numerusform>The watchlist is too long: only the first %n coins are updated</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>每 %n 秒</source>
        <translation>
            <numerusform>Every %n second</numerusform>
            <numerusform>Every %n seconds</numerusform>
        </translation>
    </message>
    <message>
        <source>状态栏的币种</source>
        <translation>Coins in the status area</translation>
    </message>
    <message>
        <source>轮流显示的间隔</source>
        <translation>Time for each coin</translation>
    </message>
    <message>
        <source>模板不能只有空格</source>
        <translation>The template cannot be spaces alone</translation>
    </message>
    <message>
        <source>第 %1 个字符：%2</source>
        <translation>Character %1: %2</translation>
    </message>
    <message>
        <source>状态栏</source>
        <translation>Status area</translation>
    </message>
    <message>
        <source>如 {symbol} {price:.0}</source>
        <translation>e.g. {symbol} {price:.0}</translation>
    </message>
    <message>
        <source>自定义的模板</source>
        <translation>Your own template</translation>
    </message>
    <message>
        <source>可用 {symbol}、{price}、{arrow}、{change}；{price:.0} 不带小数，{change:&gt;7} 靠右占 7 格</source>
        <translation>Use {symbol}, {price}, {arrow}, {change}; {price:.0} has no decimals, {change:&gt;7} is right-aligned in 7 columns</translation>
    </message>
    <message>
        <source>示例：%1</source>
        <translation>Example: %1</translation>
    </message>
    <message>
        <source>预览：%1</source>
        <translation>Preview: %1</translation>
    </message>
    <message>
        <source>关闭提示</source>
        <translation>Dismiss</translation>
    </message>
    <message>
        <source>关闭提示，%1</source>
        <translation>Dismiss: %1</translation>
    </message>
    <message>
        <source>缺少中文字体 (no font for Chinese): install fonts-noto-cjk, then restart Quillbar</source>
        <translation>There is no font for Chinese: install fonts-noto-cjk, then restart Quillbar</translation>
    </message>
    <message>
        <source>没有会话总线（D-Bus），大多数状态栏无法显示 Quillbar。请从桌面会话中启动；按 Ctrl+Q 退出</source>
        <translation>There is no session bus (D-Bus), so most status areas cannot show Quillbar. Start it from a desktop session; Ctrl+Q quits</translation>
    </message>
    <message>
        <source>桌面没有可用的状态栏，面板以窗口打开。GNOME 请启用扩展 AppIndicator and KStatusNotifierItem Support；再次启动 Quillbar 可重新打开面板，按 Ctrl+Q 退出</source>
        <translation>The desktop has no status area, so the panel opens as a window. On GNOME, enable the extension AppIndicator and KStatusNotifierItem Support. Start Quillbar again to open the panel again; Ctrl+Q quits</translation>
    </message>
    <message>
        <source>价格在状态栏里，点一下（GNOME 上双击）打开面板。看不到时，请展开状态栏里隐藏的图标，在状态栏的设置里让 Quillbar 一直显示；再次启动 Quillbar 也会打开面板</source>
        <translation>The price is in the status area; click it (on GNOME, double-click) to open the panel. If you do not see it, expand the hidden icons, and set Quillbar to always show in the status area&apos;s settings. Starting Quillbar again also opens the panel</translation>
    </message>
    <message>
        <source>返回</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>关闭面板</source>
        <translation>Close panel</translation>
    </message>
    <message>
        <source>自选</source>
        <translation>Watchlist</translation>
    </message>
    <message>
        <source>偏好设置</source>
        <translation>Preferences</translation>
    </message>
    <message>
        <source>设置</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>复制自选</source>
        <translation>Copy watchlist</translation>
    </message>
    <message>
        <source>退出 Quillbar</source>
        <translation>Quit Quillbar</translation>
    </message>
    <message>
        <source>开机自启注册失败,请检查系统设置中的登录项</source>
        <translation>Start at login failed; check the login items in the system settings</translation>
    </message>
    <message>
        <source>取消开机自启失败,请稍后重试</source>
        <translation>Start at login could not be switched off; try again later</translation>
    </message>
    <message>
        <source>涨跌幅基准</source>
        <translation>Change over</translation>
    </message>
    <message>
        <source>外观</source>
        <translation>Appearance</translation>
    </message>
    <message>
        <source>开机自启</source>
        <translation>Start at login</translation>
    </message>
    <message>
        <source>偏好设置…</source>
        <translation>Preferences...</translation>
    </message>
    <message>
        <source>已删除 %1</source>
        <translation>Removed %1</translation>
    </message>
    <message>
        <source>撤销删除 %1</source>
        <translation>Undo removing %1</translation>
    </message>
    <message>
        <source>绿涨红跌</source>
        <translation>Green up, red down</translation>
    </message>
    <message>
        <source>红涨绿跌</source>
        <translation>Red up, green down</translation>
    </message>
    <message>
        <source>蓝涨橙跌</source>
        <translation>Blue up, orange down</translation>
    </message>
    <message>
        <source>固定的币种</source>
        <translation>The pinned coin</translation>
    </message>
    <message>
        <source>轮流显示自选</source>
        <translation>The watchlist in turn</translation>
    </message>
    <message>
        <source>并排显示</source>
        <translation>Side by side</translation>
    </message>
    <message>
        <source>币种 价格 涨跌</source>
        <translation>Coin, price and change</translation>
    </message>
    <message>
        <source>币种 价格</source>
        <translation>Coin and price</translation>
    </message>
    <message>
        <source>价格</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>涨跌</source>
        <translation>Change</translation>
    </message>
    <message>
        <source>币种</source>
        <translation>Coin</translation>
    </message>
    <message>
        <source>自定义</source>
        <translation>Custom</translation>
    </message>
    <message>
        <source>简体中文</source>
        <translation>简体中文</translation>
    </message>
    <message>
        <source>跟随系统</source>
        <translation>Follow system</translation>
    </message>
    <message>
        <source>语言</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>字号</source>
        <translation>Text size</translation>
    </message>
    <message>
        <source>偏好设置未能保存到磁盘</source>
        <translation>The preferences could not be saved to disk</translation>
    </message>
</context>
<context>
    <name>platform</name>
    <message>
        <source>QUILLBAR_CA_FILE:「{}」{}</source>
        <translation>QUILLBAR_CA_FILE: &quot;{}&quot; {}</translation>
    </message>
    <message>
        <source>不存在</source>
        <translation>does not exist</translation>
    </message>
    <message>
        <source>没有读取权限</source>
        <translation>may not be read</translation>
    </message>
    <message>
        <source>是一个文件夹</source>
        <translation>is a folder</translation>
    </message>
    <message>
        <source>太大</source>
        <translation>is too large</translation>
    </message>
    <message>
        <source>无法读取（错误 {}）</source>
        <translation>cannot be read (error {})</translation>
    </message>
    <message>
        <source>不含 PEM 格式的证书</source>
        <translation>contains no PEM certificate</translation>
    </message>
    <message>
        <source>可以打开的文件太少：ulimit -n 为 {}，至少需要 {}</source>
        <translation>too few files can be open: ulimit -n is {}, at least {} are needed</translation>
    </message>
    <message>
        <source>栈空间太小：ulimit -s 为 {}，至少需要 {}</source>
        <translation>the stack is too small: ulimit -s is {}, at least {} is needed</translation>
    </message>
    <message numerus="yes">
        <source>数据为%n 小时前的</source>
        <translation>
            <numerusform>data from %n hour ago</numerusform>
            <numerusform>data from %n hours ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>数据为%n 天前的</source>
        <translation>
            <numerusform>data from %n day ago</numerusform>
            <numerusform>data from %n days ago</numerusform>
        </translation>
    </message>
    <message>
        <source>数据的时间晚于系统时钟</source>
        <translation>data later than the system clock</translation>
    </message>
</context>
<context>
    <name>services</name>
    <message>
        <source>{}:「{}」{}</source>
        <translation>{}: &quot;{}&quot; {}</translation>
    </message>
    <message>
        <source>不是有效的网址</source>
        <translation>is not a valid address</translation>
    </message>
    <message>
        <source>不能带有参数、片段或账号</source>
        <translation>must have no query, fragment or user name</translation>
    </message>
    <message>
        <source>必须以 %1:// 开头</source>
        <translation>must begin with %1://</translation>
    </message>
    <message>
        <source>只有本机地址可以使用 %1://</source>
        <translation>is not on this computer, so it cannot use %1://</translation>
    </message>
</context>
<context>
    <name>text</name>
    <message>
        <source>刚刚更新</source>
        <translation>Updated just now</translation>
    </message>
    <message numerus="yes">
        <source>%n 分钟前更新（%1）</source>
        <translation>
            <numerusform>Updated %n minute ago (%1)</numerusform>
            <numerusform>Updated %n minutes ago (%1)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n 小时前更新（%1）</source>
        <translation>
            <numerusform>Updated %n hour ago (%1)</numerusform>
            <numerusform>Updated %n hours ago (%1)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n 天前更新（%1 %2）</source>
        <translation>
            <numerusform>Updated %n day ago (%1 %2)</numerusform>
            <numerusform>Updated %n days ago (%1 %2)</numerusform>
        </translation>
    </message>
    <message>
        <source>重复（回落 %1 后）</source>
        <translation>repeats (after a fall of %1)</translation>
    </message>
    <message>
        <source>重复（回升 %1 后）</source>
        <translation>repeats (after a rise of %1)</translation>
    </message>
    <message>
        <source>回落到 %1 后生效</source>
        <translation>Rearms at %1 or below</translation>
    </message>
    <message>
        <source>回升到 %1 后生效</source>
        <translation>Rearms at %1 or above</translation>
    </message>
    <message>
        <source>低于 %1 后生效</source>
        <translation>Rearms below %1</translation>
    </message>
    <message>
        <source>高于 %1 后生效</source>
        <translation>Rearms above %1</translation>
    </message>
    <message>
        <source>价格 ≥ %1</source>
        <translation>price ≥ %1</translation>
    </message>
    <message>
        <source>价格 ≤ %1</source>
        <translation>price ≤ %1</translation>
    </message>
    <message>
        <source>24 小时涨跌 ≥ %1</source>
        <translation>24 h change ≥ %1</translation>
    </message>
    <message>
        <source>24 小时涨跌 ≤ %1</source>
        <translation>24 h change ≤ %1</translation>
    </message>
    <message>
        <source>仅一次</source>
        <translation>once</translation>
    </message>
    <message>
        <source>已关闭</source>
        <translation>Off</translation>
    </message>
    <message>
        <source>等待触发</source>
        <translation>Waiting</translation>
    </message>
    <message>
        <source>%1 期间%2</source>
        <translation>%1 crossed meanwhile: %2</translation>
    </message>
    <message>
        <source>%1 期间 %2</source>
        <translation>%1 crossed meanwhile: %2</translation>
    </message>
    <message>
        <source>当时 %1，24 小时 %2</source>
        <translation>At %1, 24 h %2</translation>
    </message>
    <message>
        <source>在休眠、断线或未运行期间越过。%1</source>
        <translation>Crossed while asleep, offline or not running. %1</translation>
    </message>
    <message>
        <source>右键任一币种，固定到菜单栏</source>
        <translation>Right-click a coin to pin it to the status area</translation>
    </message>
</context>
<context>
    <name>tray</name>
    <message>
        <source>尚无数据</source>
        <translation>No data yet</translation>
    </message>
    <message>
        <source>%1 的价格 %2</source>
        <translation>%1 price: %2</translation>
    </message>
    <message>
        <source>其他行情 %1</source>
        <translation>Other prices: %1</translation>
    </message>
    <message>
        <source>数字已隐藏</source>
        <translation>Numbers are hidden</translation>
    </message>
    <message numerus="yes">
        <source>%n 个价格提醒已触发</source>
        <translation>
            <numerusform>%n price alert has fired</numerusform>
            <numerusform>%n price alerts have fired</numerusform>
        </translation>
    </message>
    <message>
        <source>打开面板</source>
        <translation>Open panel</translation>
    </message>
    <message>
        <source>退出 Quillbar</source>
        <translation>Quit Quillbar</translation>
    </message>
    <message>
        <source>%1，%2</source>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>watchlist</name>
    <message>
        <source>添加币种</source>
        <translation>Add coin</translation>
    </message>
    <message>
        <source>搜索失败,请检查网络后重试</source>
        <translation>Search failed; check the network and try again</translation>
    </message>
    <message>
        <source>输入币种代号开始搜索</source>
        <translation>Type a coin&apos;s code to search</translation>
    </message>
    <message>
        <source>搜索中…</source>
        <translation>Searching...</translation>
    </message>
    <message>
        <source>无匹配结果</source>
        <translation>No matches</translation>
    </message>
    <message>
        <source>搜索币种,如 SOL</source>
        <translation>Search coins, e.g. SOL</translation>
    </message>
    <message>
        <source>搜索币种</source>
        <translation>Search coins</translation>
    </message>
    <message>
        <source>搜索结果</source>
        <translation>Search results</translation>
    </message>
    <message>
        <source>输入价格，或带 % 的 24 小时涨跌</source>
        <translation>Enter a price, or a 24 h change with %</translation>
    </message>
    <message>
        <source>不是价格，也不是带 % 的涨跌</source>
        <translation>Neither a price nor a change with %</translation>
    </message>
    <message>
        <source>还没有价格，请稍后再试</source>
        <translation>No price yet; try again later</translation>
    </message>
    <message>
        <source>现在就是这个数；高于它提醒上涨，低于它提醒下跌</source>
        <translation>That is the value now; a higher one alerts on a rise, a lower one on a fall</translation>
    </message>
    <message>
        <source>%1 价格提醒</source>
        <translation>%1 price alerts</translation>
    </message>
    <message>
        <source>价格，或如 5%</source>
        <translation>Price, or 5%</translation>
    </message>
    <message>
        <source>提醒的价格，或带百分号的 24 小时涨跌</source>
        <translation>Price of the alert, or a 24-hour change with a percent sign</translation>
    </message>
    <message>
        <source>仅一次</source>
        <translation>Once</translation>
    </message>
    <message>
        <source>重复</source>
        <translation>Repeat</translation>
    </message>
    <message>
        <source>如 1%</source>
        <translation>e.g. 1%</translation>
    </message>
    <message>
        <source>往回</source>
        <translation>back by</translation>
    </message>
    <message>
        <source>往回多少后可再次提醒</source>
        <translation>How far it must move back before it alerts again</translation>
    </message>
    <message>
        <source>备注（可不填）</source>
        <translation>Note (optional)</translation>
    </message>
    <message>
        <source>备注</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>添加提醒</source>
        <translation>Add alert</translation>
    </message>
    <message>
        <source>现价 %1 · 24 小时 %2</source>
        <translation>Now %1 · 24 h %2</translation>
    </message>
    <message>
        <source>现价 —</source>
        <translation>Now —</translation>
    </message>
    <message>
        <source>%1 时提醒</source>
        <translation>Alerts when %1</translation>
    </message>
    <message>
        <source>往回的幅度应小于所填的数，如 1%</source>
        <translation>The move back must be smaller than the value, e.g. 1%</translation>
    </message>
    <message>
        <source>删除提醒</source>
        <translation>Delete alert</translation>
    </message>
    <message>
        <source>删除提醒，%1</source>
        <translation>Delete alert: %1</translation>
    </message>
    <message>
        <source>提醒未能保存到磁盘，重启后会丢失</source>
        <translation>The alert could not be saved, and will be lost at the next start</translation>
    </message>
    <message>
        <source>收起 %1 走势</source>
        <translation>Hide the %1 chart</translation>
    </message>
    <message>
        <source>展开 %1 走势</source>
        <translation>Show the %1 chart</translation>
    </message>
    <message>
        <source>第 %1 位，共 %2 位</source>
        <translation>%1 of %2</translation>
    </message>
    <message>
        <source>成交额</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>价格</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>涨跌</source>
        <translation>Change</translation>
    </message>
    <message>
        <source>自选列表是空的,点 + 添加币种</source>
        <translation>The watchlist is empty; add coins with +</translation>
    </message>
    <message>
        <source>自选列表</source>
        <translation>Watchlist</translation>
    </message>
    <message>
        <source>币种</source>
        <translation>Coin</translation>
    </message>
    <message>
        <source>按列排序时不能拖动</source>
        <translation>Rows cannot be dragged while a column sorts them</translation>
    </message>
    <message>
        <source>置顶</source>
        <translation>Move to top</translation>
    </message>
    <message>
        <source>上移</source>
        <translation>Move up</translation>
    </message>
    <message>
        <source>下移</source>
        <translation>Move down</translation>
    </message>
    <message>
        <source>恢复手动顺序</source>
        <translation>Restore manual order</translation>
    </message>
    <message>
        <source>固定到菜单栏</source>
        <translation>Pin to status area</translation>
    </message>
    <message>
        <source>价格提醒…</source>
        <translation>Price alerts...</translation>
    </message>
    <message>
        <source>删除</source>
        <translation>Remove</translation>
    </message>
    <message>
        <source>尚无数据</source>
        <translation>No data yet</translation>
    </message>
    <message>
        <source>%1，价格 %2，涨跌 %3，成交额 %4</source>
        <translation>%1, price %2, change %3, volume %4</translation>
    </message>
    <message>
        <source>%1，有价格提醒</source>
        <translation>%1, has a price alert</translation>
    </message>
    <message>
        <source>、</source>
        <translation>, </translation>
    </message>
    <message numerus="yes">
        <source>%1 等 %n 个</source>
        <translation>
            <numerusform>%1 and others, %n in all</numerusform>
            <numerusform>%1 and others, %n in all</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>添加 %n 个币种</source>
        <translation>
            <numerusform>Add %n coin</numerusform>
            <numerusform>Add %n coins</numerusform>
        </translation>
    </message>
    <message>
        <source>未找到 %1</source>
        <translation>Not found: %1</translation>
    </message>
    <message>
        <source>已添加 %1</source>
        <translation>Already added: %1</translation>
    </message>
    <message numerus="yes">
        <source>内容太长，只读了前面 %n 个</source>
        <translation>
            <numerusform>Too long: only the first %n was read</numerusform>
            <numerusform>Too long: only the first %n were read</numerusform>
        </translation>
    </message>
    <message>
        <source>%1，%2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>，</source>
        <translation>, </translation>
    </message>
    <message>
        <source>剪切</source>
        <translation>Cut</translation>
    </message>
    <message>
        <source>拷贝</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>粘贴</source>
        <translation>Paste</translation>
    </message>
    <message>
        <source>全选</source>
        <translation>Select all</translation>
    </message>
    <message>
        <source>已添加</source>
        <translation>Added</translation>
    </message>
</context>
<context>
    <name>widgets</name>
    <message>
        <source>%1，%2</source>
        <translation>%1, %2</translation>
    </message>
</context>
</TS>
